#pragma once

#include "cli/command.h"
#include "platform/platform.h"

namespace tarvin {

/// "tarvin totals": prints how much has been moved to the Trash over all runs.
class TotalsCommand final : public Command {
 public:
    explicit TotalsCommand(Platform& platform) : platform_(platform) {}

    CLI::App& addTo(CLI::App& program) override;
    ExitStatus run() override;

 private:
    Platform& platform_;
};

}  // namespace tarvin
