#pragma once

#include "cli/command.h"

#include <string>
#include <vector>

namespace tarvin {

/// "tarvin help": prints the same as "--help" after the same words.
class HelpCommand final : public Command {
 public:
    CLI::App& addTo(CLI::App& program) override;
    ExitStatus run() override;

 private:
    const CLI::App* program_ = nullptr;
    std::vector<std::string> words_;
};

}  // namespace tarvin
