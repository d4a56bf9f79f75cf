#include "cli/scan_command.h"

#include "cli/file_option.h"
#include "cli/folder_scan.h"
#include "cli/interrupt.h"
#include "cli/messages.h"
#include "cli/result_writer.h"
#include "cli/scan_setup.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <memory>
#include <optional>
#include <utility>

namespace tarvin {

namespace {

constexpr const char* scanDescription =
    "Finds the files in FOLDER... whose contents are identical.";

constexpr const char* scanExamples =
    "Examples:\n"
    "  tarvin scan ~/Pictures ~/Downloads\n"
    "  tarvin scan --format json --output duplicates.json ~/Pictures\n"
    "\n"
    "Nothing is changed or removed. Ctrl-C stops the scan; what has been proven by\n"
    "then is written. A second Ctrl-C ends the program at once.\n"
    "\n"
    "Exit status:\n"
    "  0    the scan is done\n"
    "  1    it is done, but a folder or file could not be read, there was not enough\n"
    "       memory or the result could not be written\n"
    "  2    the command line is wrong, or a list of exceptions or the place of the\n"
    "       result is of no use; nothing was done\n"
    "  130  the scan was stopped by Ctrl-C or by the signal TERM or HUP\n"
    "  141  the reader of the result, such as 'head', went away before its end";

}  // namespace

CLI::App& ScanCommand::addTo(CLI::App& program) {
    CLI::App* command = program.add_subcommand("scan", scanDescription);
    command->footer(scanExamples);
    addScanOptions(*command, options_);
    return *command;
}

ExitStatus ScanCommand::run() {
    std::optional<ScanSetup> setup = setUpScan(options_, platform_, UnusableExceptions::areIgnored);
    return setup ? scanInto(*setup->output, std::move(setup->exceptions)) : ExitStatus::wrongUsage;
}

ExitStatus ScanCommand::scanInto(OutputFile& output, ExceptionFilter exceptions) {
    FolderScan scan(platform_, options_);
    // Before start(), which starts threads, and gone before the scan that it calls.
    Interrupt interrupt;
    scan.start(std::move(exceptions));
    // Not before start(), which forgets an earlier request to stop.
    interrupt.watch([&scan] { scan.requestStop(); },
                    [&output] {
                        output.removeTemporary();
                        std::_Exit(static_cast<int>(ExitStatus::stopped));
                    });
    scan.wait();
    const ScanReport report = scan.report();
    if (const ExitStatus written = write(report, output); written != ExitStatus::done) {
        return written;
    }
    if (report.stopped && !scan.ranOutOfMemory()) {
        return ExitStatus::stopped;
    }
    return scan.hasReadAll() ? ExitStatus::done : ExitStatus::incomplete;
}

ExitStatus ScanCommand::write(const ScanReport& report, OutputFile& output) const {
    makeWriter(options_.format)->write(report, output.output());
    return commitOutput(options_.output, output);
}

}  // namespace tarvin
