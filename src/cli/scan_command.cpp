#include "cli/scan_command.h"

#include "cli/interrupt.h"
#include "cli/messages.h"
#include "cli/progress_line.h"
#include "cli/progress_mailbox.h"
#include "cli/result_writer.h"
#include "cli/scan_inputs.h"
#include "cli/shown_name.h"
#include "cli/terminal.h"
#include "scan/scan_run.h"

#include <CLI/CLI.hpp>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

constexpr const char* description = "Finds the files in FOLDER... whose contents are identical.";

constexpr const char* examples =
    "Examples:\n"
    "  tarvin scan ~/Pictures ~/Downloads\n"
    "  tarvin scan --format json --output duplicates.json ~/Pictures\n"
    "\n"
    "Nothing is changed or removed. Ctrl-C stops the scan; what has been proven by\n"
    "then is written. A second Ctrl-C ends the program at once.\n"
    "\n"
    "Exit status:\n"
    "  0    the scan is done\n"
    "  1    it is done, but a given folder could not be read or the result could not\n"
    "       be written\n"
    "  2    the command line is wrong; nothing was done\n"
    "  130  the scan was stopped by Ctrl-C or by the signal TERM or HUP";

Progress progressOf(const ProgressMailbox& mailbox, const ScanRun& run) {
    Progress progress = mailbox.latest();
    if (progress.comparing) {
        // Newer than what has been told, which is not every file.
        progress.processed = run.processed();
        progress.bytesRead = run.bytesRead();
    }
    return progress;
}

void complainAboutAll(const std::vector<UnreadableLocation>& locations) {
    for (const UnreadableLocation& location : locations) {
        complainAbout(location.path, location.error.text());
    }
}

}  // namespace

CLI::App& ScanCommand::addTo(CLI::App& program) {
    CLI::App* command = program.add_subcommand("scan", description);
    command->footer(examples);
    addScanOptions(*command, options_);
    return *command;
}

ExitStatus ScanCommand::run() {
    std::optional<ExceptionFilter> exceptions = exceptionFilter();
    if (!exceptions) {
        return ExitStatus::wrongUsage;
    }
    const Result<std::unique_ptr<OutputFile>> output = OutputFile::open(options_.output);
    if (!output) {
        complain(shownOutput() + ": " + output.error().text());
        return ExitStatus::wrongUsage;
    }
    return scanInto(**output, std::move(*exceptions));
}

/// None if the list that the command line names cannot be used. A list of one's own that cannot be
/// used is no reason not to scan, because nothing is removed.
std::optional<ExceptionFilter> ScanCommand::exceptionFilter() const {
    const ExceptionList list = exceptionsOf(options_, platform_);
    if (list.error) {
        const bool wasAskedFor = options_.exceptionsFile.has_value();
        complainAbout(list.error->path,
                      list.error->text + (wasAskedFor ? "" : "; no file is left out"));
        if (wasAskedFor) {
            return std::nullopt;
        }
    }
    return ExceptionFilter(list.paths);
}

bool ScanCommand::showsProgress() const {
    return options_.progress == ProgressWhen::always ||
           (options_.progress == ProgressWhen::automatic && isDrawable(STDERR_FILENO));
}

ExitStatus ScanCommand::scanInto(OutputFile& output, ExceptionFilter exceptions) {
    ScanFolders folders = foldersOf(options_);
    ProgressMailbox mailbox;
    ScanRun run(platform_, mailbox);
    // Before start(), which starts threads, and gone before the run that it calls.
    Interrupt interrupt;
    run.start(std::move(folders.rows), std::move(exceptions));
    // Not before start(), which forgets an earlier request to stop.
    interrupt.watch([&run] { run.requestStop(); },
                    [&output] {
                        output.removeTemporary();
                        std::_Exit(static_cast<int>(ExitStatus::stopped));
                    });
    {
        std::optional<ProgressLine> line;
        if (showsProgress()) {
            line.emplace(STDERR_FILENO, [&] { return progressOf(mailbox, run); });
        }
        run.wait();
    }
    complainAboutAll(folders.unreadable);
    complainAboutAll(run.unreadableLocations());
    const ScanReport report = reportOf(run);
    if (!write(report, output)) {
        return ExitStatus::incomplete;
    }
    if (report.stopped) {
        return ExitStatus::stopped;
    }
    const bool allRead = folders.unreadable.empty() && run.unreadableLocations().empty();
    return allRead ? ExitStatus::done : ExitStatus::incomplete;
}

bool ScanCommand::write(const ScanReport& report, OutputFile& output) const {
    makeWriter(options_.format)->write(report, output.output());
    const std::optional<SystemError> failure = output.commit();
    if (failure) {
        complain(shownOutput() + ": " + failure->text());
    }
    return !failure;
}

std::string ScanCommand::shownOutput() const {
    return options_.output == "-" ? "standard output" : shownName(options_.output);
}

}  // namespace tarvin
