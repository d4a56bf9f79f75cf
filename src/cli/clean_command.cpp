#include "cli/clean_command.h"

#include "clean/clean_up_run.h"
#include "cli/clean_writer.h"
#include "cli/common_options.h"
#include "cli/interrupt.h"
#include "cli/lasting_report.h"
#include "cli/listed_input.h"
#include "cli/messages.h"
#include "cli/path_list.h"
#include "cli/scan_setup.h"
#include "cli/terminal.h"
#include "report/value_texts.h"
#include "scan/texts.h"
#include "store/data_file.h"
#include "text/shown_name.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace tarvin {

namespace {

constexpr const char* cleanDescription = "Move duplicates to the Trash, keep one of each set";

constexpr const char* cleanExamples =
    "Examples:\n"
    "  tarvin clean --dry-run ~/Pictures ~/Downloads\n"
    "  tarvin clean ~/Pictures\n"
    "  tarvin clean --yes --format json ~/Pictures\n"
    "  tarvin clean --prefer ~/Pictures --protect ~/Archive ~\n"
    "  tarvin clean --from edited.json\n"
    "\n"
    "The first file of each set, as 'tarvin scan' lists it, stays, unless --keep or\n"
    "--prefer chooses another. Files in protected folders stay as well. A file is\n"
    "moved only if it and another file of its set have not changed since the scan.\n"
    "Nothing is deleted permanently. Ctrl-C stops between two files.\n"
    "\n"
    "The list for --from is one that 'tarvin scan --format json' has written, edited\n"
    "or not. Of each set the files with \"keep\": true stay, or else the first. All\n"
    "files are read and compared again.\n"
    "\n"
    "Exit status:\n"
    "  0    all duplicates were moved, or would be, or you said no\n"
    "  1    a folder or file could not be read, a file was not moved, memory ran out\n"
    "       or something could not be written\n"
    "  2    usage error, confirmation impossible without a terminal or --yes, or a\n"
    "       list, the output file or a folder of a rule cannot be used; nothing was\n"
    "       done\n"
    "  130  stopped by Ctrl-C, SIGTERM or SIGHUP\n"
    "  141  the reader of the report, such as 'head', closed the pipe early; all\n"
    "       duplicates were moved, and the rest of the report is on standard error";

std::string questionFor(const Modal& modal) {
    return "Move " + counted(modal.totalFilesSelected(), "duplicate file") + " (" +
           getFormattedStringForSize(modal.totalFilesSelectedSize()) + ") to the Trash? [y/N] ";
}

template <class Action>
void forEachMarkedFile(const Modal& modal, const Action& action) {
    for (const std::shared_ptr<Extensions>& extension : modal.extensions()) {
        for (const std::shared_ptr<Set>& set : extension->sets()) {
            for (const std::shared_ptr<File>& file : set->files()) {
                if (file->state() == CheckState::on) {
                    action(*file);
                }
            }
        }
    }
}

/// Adds "--from" to a command that has all its other options. It excludes the folders and every
/// option that says which files are found or kept.
void addFrom(CLI::App& command, std::optional<std::string>& from) {
    constexpr std::array<std::string_view, 10> shared{
        "--help",          "--dry-run",    "--yes",      "--format", "--output",
        "--no-exceptions", "--exceptions", "--progress", "--color",  "--from"};
    CLI::Option* const folders = command.get_option("FOLDER");
    CLI::Option* const option = addFileOption(
        command, "--from",
        [&from, folders](const std::string& file) {
            from = file;
            folders->required(false);
        },
        "Clean the sets of a list instead of folders;\n- is standard input");
    for (CLI::Option* other : command.get_options()) {
        const std::string name = other->get_name();
        if (std::find(shared.begin(), shared.end(), name) == shared.end()) {
            option->excludes(other);
        }
    }
}

/// The sets found, with marks. Before a list is used, a thread that a stop left behind may still
/// change it.
std::shared_ptr<Modal> markedResult(const FolderScan& scan, ListedFiles* list,
                                    const MarkingRule& rule) {
    if (list == nullptr) {
        markByRule(*scan.modal(), rule);
        return scan.modal();
    }
    return scan.report().stopped ? std::make_shared<Modal>()
                                 : markListedFiles(*list, *scan.modal(), scan.unreadable());
}

/// Reports what a list says that is not so. Returns whether there was nothing.
bool isAsListed(const FolderScan& scan, const ListedFiles* list) {
    return list == nullptr || scan.report().stopped || reportListProblems(*list);
}

/// Reports each file that is moved or not.
class MoveReport final {
 public:
    MoveReport(const ScanOptions& options, OutputFile& output)
        : report_(options.format, shownOutput(options.output), output,
                  [](ResultFormat format, Output& target) {
                      return makeCleanWriter(format, false, target);
                  }) {}

    void add(const File& file, const MoveResult& result) {
        report_.write([&](CleanWriter& writer) { writer.file(file, result); });
        if (result.outcome == MoveOutcome::moved) {
            if (!result.reason.empty()) {
                printError(quotedName(file.filePath()) + " is in the Trash: " + reasonFor(result));
                movedAll_ = false;
            }
            return;
        }
        notMoved_.insert(&file);
        if (result.outcome == MoveOutcome::stopped) {
            stopped_ = true;
            return;
        }
        printError(
            failureText("move", quotedName(file.filePath()) + " to the Trash", reasonFor(result)));
        movedAll_ = false;
    }

    /// Reports the marked files that a stop left, as stopped. Moved files are no longer in the
    /// tree.
    void addRest(const Modal& modal) {
        forEachMarkedFile(modal, [this](const File& file) {
            if (!notMoved_.contains(&file)) {
                add(file, {MoveOutcome::stopped, {}});
            }
        });
    }

    [[nodiscard]] ExitStatus end(const RemovalResult& moved) {
        return report_.end([&](CleanWriter& writer) {
            writer.end({moved.deletedFilesCount, moved.deletedFilesSize, stopped_});
        });
    }

    [[nodiscard]] bool movedAll() const { return movedAll_; }
    [[nodiscard]] bool stopped() const { return stopped_; }

 private:
    LastingReport<CleanWriter> report_;
    bool movedAll_ = true;
    bool stopped_ = false;
    std::unordered_set<const File*> notMoved_;
};

}  // namespace

CLI::App& CleanCommand::addTo(CLI::App& program) {
    CLI::App* command = program.add_subcommand("clean", cleanDescription);
    command->footer(cleanExamples);
    command->add_flag("-n,--dry-run", dryRun_, "List what would be moved, and move nothing");
    command->add_flag("-y,--yes", yes_, "Do not ask for confirmation");
    addScanOptions(*command, options_);
    addFrom(*command, from_);
    return *command;
}

ExitStatus CleanCommand::run() {
    if (!dryRun_ && !yes_ && (readsStandardInput(options_) || from_ == "-")) {
        return refuse(std::string(from_ ? "--from" : "--files-from") +
                          " - requires --yes or --dry-run: standard input cannot answer as well",
                      "tarvin clean");
    }
    if (!dryRun_ && !yes_ && !isInteractive()) {
        printCannotConfirm("move files");
        return ExitStatus::wrongUsage;
    }
    if (!addListedPaths(options_)) {
        return ExitStatus::wrongUsage;
    }
    const auto rule = markingRuleOf(options_.keep, options_.folders, platform_.fileSystem());
    if (!rule) {
        return refuse(rule.error(), "tarvin clean");
    }
    rule_ = rule->value_or(MarkingRule());
    std::shared_ptr<ListedFiles> list;
    if (from_) {
        list = readList(*from_);
        if (list == nullptr) {
            return ExitStatus::wrongUsage;
        }
    }
    std::optional<ScanSetup> setup =
        setUpScan(options_, platform_, UnusableExceptions::areARefusal);
    return setup ? clean(*setup->output, std::move(setup->exceptions), list)
                 : ExitStatus::wrongUsage;
}

ExitStatus CleanCommand::clean(OutputFile& output, ExceptionFilter exceptions,
                               const std::shared_ptr<ListedFiles>& list) {
    FolderScan scan(platform_, options_);
    const ExitStatus status = cleanFoundBy(scan, output, std::move(exceptions), list);
    scan.finishRemembering();
    return status;
}

ExitStatus CleanCommand::cleanFoundBy(FolderScan& scan, OutputFile& output,
                                      ExceptionFilter exceptions,
                                      const std::shared_ptr<ListedFiles>& list) {
    // Constructed before start(), which starts threads; destroyed before `scan`, which it calls.
    Interrupt interrupt;
    if (list != nullptr) {
        scan.start(list, std::move(exceptions));
    } else {
        scan.start(std::move(exceptions));
    }
    interrupt.watch([&] { stopOnFirstSignal(scan, output); }, [&] { endOnSecondSignal(output); });
    scan.wait();
    const std::shared_ptr<Modal> marked = markedResult(scan, list.get(), rule_);
    Modal& modal = *marked;
    const bool hasUsedAll = scan.hasReadAll() && isAsListed(scan, list.get());
    const bool asks = !dryRun_ && !yes_ && modal.totalFilesSelected() > 0;
    // Set the stage before reading the flag: a signal that came before is seen by the test below;
    // one that comes later finds `asking` and exits.
    stage_ = asks ? Stage::asking : Stage::scanning;
    if (scan.ranOutOfMemory()) {
        printError("nothing was moved");
        return ExitStatus::incomplete;
    }
    if (scan.report().stopped || control_.stopDeletion()) {
        printError("stopped; nothing was moved");
        return ExitStatus::stopped;
    }
    if (asks && !confirm(questionFor(modal))) {
        return hasUsedAll ? ExitStatus::done : ExitStatus::incomplete;
    }
    const ExitStatus status = dryRun_ ? plan(modal, output) : move(modal, output);
    return status == ExitStatus::done && !hasUsedAll ? ExitStatus::incomplete : status;
}

void CleanCommand::stopOnFirstSignal(FolderScan& scan, const OutputFile& output) {
    control_.stop();
    scan.requestStop();
    if (stage_ == Stage::asking) {
        // Nothing has been moved, and the main thread is blocked on the question.
        quitAtOnce(output);
    }
}

/// Ignored while files are moved: the report and the totals must be completed.
void CleanCommand::endOnSecondSignal(const OutputFile& output) const {
    if (stage_ != Stage::moving) {
        quitAtOnce(output);
    }
}

ExitStatus CleanCommand::plan(const Modal& modal, OutputFile& output) {
    stage_ = Stage::planning;
    const std::unique_ptr<CleanWriter> writer =
        makeCleanWriter(options_.format, true, output.output());
    writer->begin();
    forEachMarkedFile(modal, [&](const File& file) {
        if (!control_.stopDeletion()) {
            writer->file(file, std::nullopt);
        }
    });
    const bool stopped = control_.stopDeletion();
    writer->end({modal.totalFilesSelected(), modal.totalFilesSelectedSize(), stopped});
    const ExitStatus written = commitOutput(options_.output, output);
    return stopped ? ExitStatus::stopped : written;
}

ExitStatus CleanCommand::move(Modal& modal, OutputFile& output) {
    stage_ = Stage::moving;
    std::optional<MoveReport> report;
    CleanUp::Settings settings;
    settings.report = [&report](const File& file, const MoveResult& result) {
        report->add(file, result);
    };
    settings.stopped = [this] { return control_.stopDeletion(); };
    const std::optional<std::string> folder = platform_.applicationSupportFolder();
    if (!folder) {
        printNoHomeFolder("open journal");
        printError("nothing was moved");
        return ExitStatus::incomplete;
    }
    DataFile totals(folder);
    auto opened = CleanUpRun::open(platform_, totals, std::move(settings));
    if (const auto* error = std::get_if<StoreError>(&opened)) {
        printStoreError("open journal", *error);
        moveJournalAside(*error);
        printError("nothing was moved");
        return ExitStatus::incomplete;
    }
    report.emplace(options_, output);
    auto run = std::get<std::unique_ptr<CleanUpRun>>(std::move(opened));
    DeletionWalk walk(modal, run->cleanUp(), control_, {});
    const RemovalResult moved = walk.run();
    report->addRest(modal);
    const std::optional<StoreError> failure = run->cleanUp().failure();
    const bool isStored = finish(std::move(run), totals);
    const ExitStatus written = report->end(moved);
    if (report->stopped() && !failure) {
        return ExitStatus::stopped;
    }
    return report->movedAll() && isStored ? written : ExitStatus::incomplete;
}

/// False if the journal or the totals could not be written.
bool CleanCommand::finish(std::unique_ptr<CleanUpRun> run, DataFile& totals) {
    const std::optional<StoreError> failure = run->finish(totals);
    if (failure) {
        printRecordError(*failure, totals.dataPath());
    }
    if (const std::optional<StoreError> ofJournal = run->cleanUp().failure()) {
        run.reset();
        moveJournalAside(*ofJournal);
    }
    if (!totals.putAside().empty()) {
        printMovedAside(totals.dataPath(), totals.putAside());
    }
    return !failure && totals.putAside().empty();
}

/// Moves a damaged journal aside, so that it stops only one clean-up.
void CleanCommand::moveJournalAside(const StoreError& error) {
    if (const auto aside = tarvin::moveJournalAside(platform_, error)) {
        printError(quotedName(error.path) + " is kept as " + quotedName(*aside) +
                   "; the next clean-up starts a new journal");
    }
}

}  // namespace tarvin
