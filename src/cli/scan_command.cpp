#include "cli/scan_command.h"

#include "cli/common_options.h"
#include "cli/folder_scan.h"
#include "cli/interrupt.h"
#include "cli/messages.h"
#include "cli/path_list.h"
#include "cli/scan_setup.h"
#include "report/result_writer.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <utility>

namespace tarvin {

namespace {

constexpr const char* scanDescription = "Find identical files";

constexpr const char* scanExamples =
    "Examples:\n"
    "  tarvin scan ~/Pictures ~/Downloads\n"
    "  tarvin scan --format json --output duplicates.json ~/Pictures\n"
    "  tarvin scan --keep newest ~/Documents\n"
    "\n"
    "Scanning changes nothing. Ctrl-C stops and prints the sets confirmed so far; a\n"
    "second Ctrl-C quits at once. With --keep, --prefer or --protect the result shows\n"
    "which files stay.\n"
    "\n"
    "Exit status:\n"
    "  0    finished\n"
    "  1    finished, but a folder or file could not be read, memory ran out or the\n"
    "       result could not be written\n"
    "  2    usage error, or a list, the output file or a folder of a rule cannot be\n"
    "       used; nothing was done\n"
    "  130  stopped by Ctrl-C, SIGTERM or SIGHUP\n"
    "  141  the reader of the result, such as 'head', closed the pipe early";

}  // namespace

CLI::App& ScanCommand::addTo(CLI::App& program) {
    CLI::App* command = program.add_subcommand("scan", scanDescription);
    command->footer(scanExamples);
    addScanOptions(*command, options_);
    return *command;
}

ExitStatus ScanCommand::run() {
    if (!addListedPaths(options_)) {
        return ExitStatus::wrongUsage;
    }
    const auto rule = markingRuleOf(options_.keep, options_.folders, platform_.fileSystem());
    if (!rule) {
        return refuse(rule.error(), "tarvin scan");
    }
    rule_ = *rule;
    std::optional<ScanSetup> setup = setUpScan(options_, platform_, UnusableExceptions::areIgnored);
    return setup ? scanInto(*setup->output, std::move(setup->exceptions)) : ExitStatus::wrongUsage;
}

ExitStatus ScanCommand::scanInto(OutputFile& output, ExceptionFilter exceptions) {
    FolderScan scan(platform_, options_);
    // Constructed before start(), which starts threads; destroyed before `scan`, which it calls.
    Interrupt interrupt;
    scan.start(std::move(exceptions));
    // After start(), which resets an earlier stop request.
    interrupt.watch([&scan] { scan.requestStop(); }, [&output] { quitAtOnce(output); });
    scan.wait();
    ScanReport report = scan.report();
    if (rule_) {
        markByRule(*scan.modal(), *rule_);
        report.hasMarks = true;
    }
    writeReport(options_.format, report, output.output());
    const ExitStatus written = commitOutput(options_.output, output);
    scan.finishRemembering();
    if (written != ExitStatus::done) {
        return written;
    }
    if (report.stopped && !scan.ranOutOfMemory()) {
        return ExitStatus::stopped;
    }
    return scan.hasReadAll() ? ExitStatus::done : ExitStatus::incomplete;
}

}  // namespace tarvin
