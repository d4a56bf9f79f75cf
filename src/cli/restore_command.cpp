#include "cli/restore_command.h"

#include "cli/choice.h"
#include "cli/common_options.h"
#include "cli/interrupt.h"
#include "cli/lasting_report.h"
#include "cli/messages.h"
#include "cli/restore_choice.h"
#include "cli/terminal.h"
#include "cli/usage_texts.h"
#include "report/value_texts.h"
#include "scan/texts.h"
#include "text/shown_name.h"

#include <CLI/CLI.hpp>

#include <array>
#include <charconv>
#include <limits>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

constexpr const char* restoreDescription = "Put the files of a clean-up back from the Trash";

constexpr const char* restoreExamples =
    "Examples:\n"
    "  tarvin restore --list\n"
    "  tarvin restore --dry-run\n"
    "  tarvin restore\n"
    "  tarvin restore --yes 12\n"
    "\n"
    "Existing files are never replaced: a file whose name is taken is put back as\n"
    "'NAME (put back).EXT'. Missing folders are created. A file that cannot be put\n"
    "back stays in the Trash. Ctrl-C stops between two files.\n"
    "\n"
    "Exit status:\n"
    "  0    all files were put back, or would be, or you said no, or there is nothing\n"
    "       to put back\n"
    "  1    a file could not be put back, or something could not be read or written\n"
    "  2    usage error, confirmation impossible without a terminal or --yes, or the\n"
    "       output file cannot be used; nothing was done\n"
    "  130  stopped by Ctrl-C, SIGTERM or SIGHUP\n"
    "  141  the reader of the report, such as 'head', closed the pipe early; the\n"
    "       files were put back, and the rest of the report is on standard error";

constexpr const char* helpCommand = "tarvin restore";

constexpr std::array restoreFormats{Choice<ResultFormat>{"text", ResultFormat::text},
                                    Choice<ResultFormat>{"json", ResultFormat::json}};

ExitStatus journalFailure(const StoreError& error, std::string_view action = "read journal") {
    return printStoreError(action, error);
}

std::string questionFor(std::uint64_t files, std::uint64_t all, std::uint64_t bytes,
                        const CleanUpSummary& cleanUp) {
    const std::string count = files == all ? counted(files, "file")
                                           : std::to_string(files) + " of " + counted(all, "file");
    return "Put " + count + " (" + getFormattedStringForSize(bytes) + ") of the clean-up of " +
           localDate(cleanUp.begun) + " back? [y/N] ";
}

/// Reports each file that is put back or not: to the target of the result, and on standard error
/// where it cannot be put back. One thread at a time.
class RestoreReport final {
 public:
    /// `target` is what --output names. `output` must outlive this object.
    RestoreReport(const RestoreSubject& subject, ResultFormat format, const std::string& target,
                  OutputFile& output)
        : report_(format, shownOutput(target), output,
                  [&subject](ResultFormat written, Output& to) {
                      return makeRestoreWriter(written, subject, to);
                  }) {}

    void add(const PutBackFile& file) {
        report_.write([&](RestoreWriter& writer) { writer.file(file); });
        if (isBack(file.outcome)) {
            ++summary_.files;
            summary_.bytes += file.size;
            return;
        }
        ++summary_.notFiles;
        if (file.outcome == PutBackOutcome::stopped) {
            summary_.stopped = true;
        } else {
            printPathError("put back", file.path, reasonFor(file));
            ++refused_;
        }
    }

    /// The report ends early, on request.
    void setStopped() { summary_.stopped = true; }

    /// Writes the sums and completes the report. Call once, last.
    [[nodiscard]] ExitStatus end() {
        const ExitStatus written =
            report_.end([this](RestoreWriter& writer) { writer.end(summary_); });
        if (summary_.stopped) {
            return ExitStatus::stopped;
        }
        return refused_ == 0 ? written : ExitStatus::incomplete;
    }

 private:
    LastingReport<RestoreWriter> report_;
    RestoreSummary summary_;
    std::uint64_t refused_ = 0;
};

}  // namespace

CLI::App& RestoreCommand::addTo(CLI::App& program) {
    CLI::App* command = program.add_subcommand("restore", restoreDescription);
    command->footer(restoreExamples);
    CLI::Option* number = command
                              ->add_option("CLEAN-UP", number_,
                                           "Number of the clean-up, as shown by --list\n[default: "
                                           "the last one with files to put "
                                           "back]")
                              ->type_name("");
    CLI::Option* list =
        command->add_flag("-l,--list", list_, "List the known clean-ups, newest first, and exit");
    list->excludes(number);
    list->excludes(command->add_flag("-n,--dry-run", dryRun_,
                                     "List what would be put back, and put back\nnothing"));
    list->excludes(command->add_flag("-y,--yes", yes_, "Do not ask for confirmation"));
    addChoice(
        *command, "-f,--format", restoreFormats, [this](ResultFormat format) { format_ = format; },
        "Output format [default: text]");
    addOutputOption(*command, output_);
    addColorOption(*command);
    return *command;
}

ExitStatus RestoreCommand::run() {
    if (!parseNumber()) {
        return refuse(invalidValueText(number_.value_or(""), "CLEAN-UP",
                                       "expected a number, as shown by --list"),
                      helpCommand);
    }
    if (!list_ && !dryRun_ && !yes_ && !isInteractive()) {
        printCannotConfirm("put files back");
        return ExitStatus::wrongUsage;
    }
    const std::unique_ptr<OutputFile> output = openOutput(output_);
    if (!output) {
        return ExitStatus::wrongUsage;
    }
    Interrupt interrupt;
    interrupt.watch([&] { stopOnFirstSignal(*output); }, [&] { endOnSecondSignal(*output); });
    return restoreOrList(*output);
}

/// Stores the number in cleanUp_. True if it is valid or none was given.
bool RestoreCommand::parseNumber() {
    if (!number_) {
        return true;
    }
    CleanUpId number = 0;
    const char* const end = number_->data() + number_->size();
    const auto [behind, failure] = std::from_chars(number_->data(), end, number);
    if (failure == std::errc::result_out_of_range) {
        number = std::numeric_limits<CleanUpId>::max();  // no clean-up has this number
    } else if (failure != std::errc() || number < 0) {
        return false;
    }
    cleanUp_ = number;
    return behind == end;
}

ExitStatus RestoreCommand::restoreOrList(OutputFile& output) {
    const std::optional<std::string> folder = platform_.applicationSupportFolder();
    if (!folder) {
        return printNoHomeFolder("open journal");
    }
    DataFile totals(folder);
    std::unique_ptr<PutBack> putBack;
    // Opening would create a journal.
    if (CleanUpJournal::isIn(*folder)) {
        auto opened = PutBack::open(platform_, totals);
        if (const auto* error = std::get_if<StoreError>(&opened)) {
            return journalFailure(*error, "open journal");
        }
        putBack = std::get<std::unique_ptr<PutBack>>(std::move(opened));
    }
    if (list_) {
        return list(putBack.get(), output);
    }
    const auto chosen = choose(putBack.get());
    if (const auto* status = std::get_if<ExitStatus>(&chosen)) {
        return *status;
    }
    if (const auto* reason = std::get_if<NothingToPutBack>(&chosen)) {
        return nothing(*reason, output);
    }
    return restore(*putBack, std::get<CleanUpSummary>(chosen), totals, output);
}

ExitStatus RestoreCommand::list(PutBack* putBack, OutputFile& output) const {
    std::vector<KnownCleanUp> all;
    if (putBack != nullptr) {
        auto known = knownCleanUps(*putBack);
        if (const auto* error = std::get_if<StoreError>(&known)) {
            return journalFailure(*error);
        }
        all = std::get<std::vector<KnownCleanUp>>(std::move(known));
    }
    writeCleanUps(format_, all, output.output());
    return commitOutput(output_, output);
}

RestoreCommand::Chosen RestoreCommand::choose(PutBack* putBack) const {
    if (number_) {
        return chooseNumbered(putBack);
    }
    if (putBack == nullptr) {
        return NothingToPutBack::neverCleaned;
    }
    const auto last = putBack->last();
    if (const auto* error = std::get_if<StoreError>(&last)) {
        return journalFailure(*error);
    }
    const auto& found = std::get<std::variant<CleanUpSummary, NothingToPutBack>>(last);
    const auto* cleanUp = std::get_if<CleanUpSummary>(&found);
    return cleanUp != nullptr ? Chosen(*cleanUp) : Chosen(std::get<NothingToPutBack>(found));
}

RestoreCommand::Chosen RestoreCommand::chooseNumbered(PutBack* putBack) const {
    if (putBack != nullptr) {
        const auto found = cleanUpNumbered(*putBack, cleanUp_);
        if (const auto* error = std::get_if<StoreError>(&found)) {
            return journalFailure(*error);
        }
        const auto& cleanUp = std::get<std::optional<CleanUpSummary>>(found);
        if (cleanUp.has_value()) {
            return *cleanUp;
        }
    }
    return refuse("unknown clean-up " + quotedName(number_.value_or("")) +
                      "; 'tarvin restore --list' lists the known ones",
                  helpCommand);
}

ExitStatus RestoreCommand::restore(PutBack& putBack, const CleanUpSummary& cleanUp,
                                   DataFile& totals, OutputFile& output) {
    const auto result = prospectOf(putBack, cleanUp.id);
    if (const auto* error = std::get_if<StoreError>(&result)) {
        return journalFailure(*error);
    }
    const RestoreProspect& prospect = std::get<RestoreProspect>(result);
    if (prospect.all == prospect.lost) {
        const bool isAllBack = prospect.all == 0 && cleanUp.lostFiles == 0;
        return nothing(isAllBack ? NothingToPutBack::allBack : NothingToPutBack::noneInTrash,
                       output);
    }
    // If no file can be put back, the report says why; there is nothing to confirm.
    if (dryRun_ || prospect.files == 0) {
        return plan(putBack, cleanUp.id, output);
    }
    if (!yes_ && !confirm(questionFor(prospect.files, prospect.all, prospect.bytes, cleanUp))) {
        return ExitStatus::done;
    }
    return putBackFiles(putBack, cleanUp.id, totals, output);
}

ExitStatus RestoreCommand::nothing(NothingToPutBack reason, OutputFile& output) const {
    const auto writer = makeRestoreWriter(
        format_, {.dryRun = dryRun_, .cleanUp = number_ ? std::optional(cleanUp_) : std::nullopt},
        output.output());
    writer->begin();
    writer->nothing(reason);
    return commitOutput(output_, output);
}

ExitStatus RestoreCommand::plan(PutBack& putBack, CleanUpId cleanUp, OutputFile& output) {
    enter(Stage::planning);
    RestoreReport report({.dryRun = dryRun_, .cleanUp = cleanUp}, format_, output_, output);
    const std::optional<StoreError> failure =
        putBack.examine(cleanUp, [&](const PutBackFile& file) {
            if (stopped_) {
                report.setStopped();
                return false;
            }
            report.add(file);
            return true;
        });
    const ExitStatus status = report.end();
    return failure ? journalFailure(*failure) : status;
}

ExitStatus RestoreCommand::putBackFiles(PutBack& putBack, CleanUpId cleanUp, DataFile& totals,
                                        OutputFile& output) {
    enter(Stage::puttingBack);
    RestoreReport report({.dryRun = false, .cleanUp = cleanUp}, format_, output_, output);
    const std::optional<StoreError> failure =
        putBack.run(cleanUp, {.stopped = [this] { return stopped_.load(); },
                              .report = [&](const PutBackFile& file) { report.add(file); }});
    if (failure) {
        printRecordError(*failure, totals.dataPath());
    }
    if (!totals.putAside().empty()) {
        printMovedAside(totals.dataPath(), totals.putAside());
    }
    const ExitStatus status = report.end();
    const bool isStored = !failure && totals.putAside().empty();
    return status == ExitStatus::stopped || isStored ? status : ExitStatus::incomplete;
}

/// Blocks for good while a signal ends the program, so that no file is moved any more.
void RestoreCommand::enter(Stage stage) {
    const std::lock_guard lock(mutex_);
    stage_ = stage;
}

void RestoreCommand::stopOnFirstSignal(const OutputFile& output) {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
    if (stage_ == Stage::searching) {
        quitAtOnce(output);
    }
}

/// Ignored while files are put back: the report and the totals must be completed.
void RestoreCommand::endOnSecondSignal(const OutputFile& output) {
    const std::lock_guard lock(mutex_);
    if (stage_ != Stage::puttingBack) {
        quitAtOnce(output);
    }
}

}  // namespace tarvin
