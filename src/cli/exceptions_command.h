#pragma once

#include "cli/command.h"
#include "platform/platform.h"
#include "store/exception_file.h"

#include <string>
#include <vector>

namespace tarvin {

/// "tarvin exceptions": shows and edits the list of files that scans skip.
class ExceptionsCommand final : public Command {
 public:
    explicit ExceptionsCommand(Platform& platform) : platform_(platform) {}

    CLI::App& addTo(CLI::App& program) override;
    ExitStatus run() override;

 private:
    static ExitStatus list(const ExceptionFile& exceptions);
    [[nodiscard]] ExitStatus add(ExceptionFile& exceptions) const;
    static ExitStatus clear(ExceptionFile& exceptions);

    Platform& platform_;
    CLI::App* list_ = nullptr;
    CLI::App* add_ = nullptr;
    CLI::App* clear_ = nullptr;
    std::vector<std::string> files_;
};

}  // namespace tarvin
