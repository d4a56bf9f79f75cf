#pragma once

#include "cli/command.h"
#include "platform/platform.h"

namespace tarvin {

/// "tarvin forget": removes what scans have remembered.
class ForgetCommand final : public Command {
 public:
    explicit ForgetCommand(Platform& platform) : platform_(platform) {}

    CLI::App& addTo(CLI::App& program) override;
    ExitStatus run() override;

 private:
    Platform& platform_;
};

}  // namespace tarvin
