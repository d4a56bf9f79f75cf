#pragma once

#include "cli/command.h"
#include "cli/scan_options.h"
#include "model/marking_rule.h"
#include "platform/platform.h"
#include "report/output_file.h"
#include "scan/exception_filter.h"

#include <optional>

namespace tarvin {

/// "tarvin scan": finds identical files and prints them.
class ScanCommand final : public Command {
 public:
    explicit ScanCommand(Platform& platform) : platform_(platform) {}

    CLI::App& addTo(CLI::App& program) override;
    ExitStatus run() override;

 private:
    ExitStatus scanInto(OutputFile& output, ExceptionFilter exceptions);

    Platform& platform_;
    ScanOptions options_;
    std::optional<MarkingRule> rule_;
};

}  // namespace tarvin
