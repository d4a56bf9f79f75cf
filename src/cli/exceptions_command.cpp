#include "cli/exceptions_command.h"

#include "cli/choice.h"
#include "cli/common_options.h"
#include "cli/exceptions_writer.h"
#include "cli/messages.h"
#include "cli/usage_texts.h"
#include "platform/file_paths.h"
#include "platform/file_system.h"
#include "report/value_texts.h"
#include "scan/texts.h"
#include "store/exception_presence.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_set>

namespace tarvin {

namespace {

constexpr const char* standardOutput = "-";

constexpr const char* exceptionsExamples =
    "Examples:\n"
    "  tarvin exceptions add ~/Pictures/keep-both.jpg\n"
    "  tarvin exceptions list\n"
    "  tarvin exceptions remove ~/Pictures/keep-both.jpg\n"
    "  tarvin exceptions clear --missing\n"
    "\n"
    "An exception is a path: a moved or renamed file is scanned again.\n"
    "\n"
    "Exit status:\n"
    "  0    done\n"
    "  1    a file to add does not exist, a file to remove is not on the list, or the\n"
    "       list could not be read or written\n"
    "  2    usage error; nothing was done";

constexpr std::array listFormats{Choice<ResultFormat>{"text", ResultFormat::text},
                                 Choice<ResultFormat>{"json", ResultFormat::json},
                                 Choice<ResultFormat>{"csv", ResultFormat::csv}};

/// True, after an error message, if the damaged list was moved aside: its entries no longer apply.
bool reportMovedAside(const ExceptionFile& exceptions) {
    if (exceptions.putAside().empty()) {
        return false;
    }
    printMovedAside(exceptions.path(), exceptions.putAside());
    return true;
}

/// Why the file cannot be excluded, since scans skip it anyway; nullopt if it can.
std::optional<std::string> exclusionError(FileSystem& fileSystem, const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const Result<Descriptor> folder =
        fileSystem.openRootDirectory(slash == 0 ? "/" : path.substr(0, slash));
    if (!folder) {
        return folder.error().text();
    }
    const Result<FileAttributes> attributes =
        fileSystem.attributesAt(*folder, path.c_str() + slash + 1);
    if (!attributes) {
        return attributes.error().text();
    }
    switch (attributes->type) {
        case EntryType::regular:
            return std::nullopt;
        case EntryType::directory:
            return "Is a folder";
        default:
            return "not a regular file (scans skip it anyway)";
    }
}

/// Without the leading newline that the text has in the window.
std::string asLine(std::string_view text) {
    return std::string(text.substr(text.find_first_not_of('\n'))) + '\n';
}

std::string removedText(std::size_t count, std::string_view noun) {
    return "Removed " + counted(count, noun) + " from the exceptions list.\n";
}

std::size_t countOf(Presence presence, const std::vector<Presence>& presences) {
    return static_cast<std::size_t>(std::count(presences.begin(), presences.end(), presence));
}

}  // namespace

CLI::App& ExceptionsCommand::addTo(CLI::App& program) {
    CLI::App* command =
        program.add_subcommand("exceptions", "Show or edit the list of excluded files");
    command->footer(exceptionsExamples);
    list_ = command->add_subcommand("list", "Print the excluded files");
    addChoice(
        *list_, "-f,--format", listFormats, [this](ResultFormat format) { format_ = format; },
        "Output format [default: text]; json and csv tell\nwhether each file is there");
    add_ = command->add_subcommand("add", "Exclude files");
    add_->add_option("FILE", files_, "File to exclude")->type_name("")->required();
    remove_ = command->add_subcommand("remove", "Take files off the list");
    remove_->add_option("FILE", files_, "File to remove, which need not exist")
        ->type_name("")
        ->required();
    clear_ = command->add_subcommand("clear", "Empty the list");
    clear_->add_flag("--missing", onlyMissing_,
                     "Remove only the files that do not exist, but not\n"
                     "those on drives that are not attached");
    for (CLI::App* each : {list_, add_, remove_, clear_}) {
        each->group("Commands");
        addColorOption(*each);
    }
    addColorOption(*command);
    // Zero commands are accepted here: run() reports the missing one. Otherwise the parser would,
    // and hide an unexpected argument.
    command->require_subcommand(0, 1);
    return *command;
}

ExitStatus ExceptionsCommand::run() {
    if (!list_->parsed() && !add_->parsed() && !remove_->parsed() && !clear_->parsed()) {
        return refuse(missingCommandText() + ": list, add, remove or clear", "tarvin exceptions");
    }
    const std::optional<std::string> folder = platform_.applicationSupportFolder();
    if (!folder) {
        return printNoHomeFolder(list_->parsed() ? "read exceptions" : "store exceptions");
    }
    ExceptionFile exceptions(folder);
    const std::optional<StoreError> failure = exceptions.load();
    const bool needsList = !add_->parsed() && (!clear_->parsed() || onlyMissing_);
    if (failure && needsList) {
        return printStoreError("read exceptions list", *failure);
    }
    if (list_->parsed()) {
        return list(exceptions);
    }
    if (remove_->parsed()) {
        return remove(exceptions);
    }
    if (onlyMissing_) {
        return clearMissing(exceptions);
    }
    // Writing moves a damaged list aside.
    return add_->parsed() ? add(exceptions) : clear(exceptions);
}

ExitStatus ExceptionsCommand::list(const ExceptionFile& exceptions) const {
    const std::unique_ptr<OutputFile> output = openOutput(standardOutput);
    if (!output) {
        return ExitStatus::incomplete;
    }
    writeExceptions(format_, exceptions.exceptionArrayData(), platform_, output->output());
    return commitOutput(standardOutput, *output);
}

/// A file that does not exist is reported and not added: it is probably misspelt.
ExitStatus ExceptionsCommand::add(ExceptionFile& exceptions) const {
    std::vector<std::string> paths;
    for (const std::string& file : files_) {
        const Result<std::string> path = absolutePath(file);
        if (!path) {
            printPathError("exclude", file, path.error().text());
        } else if (const auto reason = exclusionError(platform_.fileSystem(), *path)) {
            printPathError("exclude", file, *reason);
        } else {
            paths.push_back(*path);
        }
    }
    if (paths.empty()) {
        return ExitStatus::incomplete;
    }
    if (const std::optional<StoreError> failure = exceptions.addExceptions(paths)) {
        return printStoreError("write exceptions list", *failure);
    }
    const ExitStatus status = print(asLine(exceptionsAddedText(paths.size())));
    const bool isWhole = paths.size() == files_.size() && !reportMovedAside(exceptions);
    return isWhole ? status : ExitStatus::incomplete;
}

/// A file is named by its path on the list, or by any path that `add` would make the same.
ExitStatus ExceptionsCommand::remove(ExceptionFile& exceptions) const {
    const std::vector<std::string>& all = exceptions.exceptionArrayData();
    const std::unordered_set<std::string> listed(all.begin(), all.end());
    std::unordered_set<std::string> removed;
    bool isWhole = true;
    for (const std::string& file : files_) {
        const Result<std::string> absolute = absolutePath(file);
        const std::string path = listed.contains(file) || !absolute ? file : *absolute;
        if (listed.contains(path)) {
            removed.insert(path);
        } else {
            printPathError("remove exception", path, "not on the list");
            isWhole = false;
        }
    }
    if (removed.empty()) {
        return ExitStatus::incomplete;
    }
    if (const auto failure = exceptions.removeExceptions({removed.begin(), removed.end()})) {
        return printStoreError("write exceptions list", *failure);
    }
    const ExitStatus status = print(removedText(removed.size(), "file"));
    return isWhole ? status : ExitStatus::incomplete;
}

ExitStatus ExceptionsCommand::clearMissing(ExceptionFile& exceptions) const {
    const std::vector<std::string>& all = exceptions.exceptionArrayData();
    const std::vector<Presence> presences = ExceptionPresence(platform_).of(all);
    std::vector<std::string> missing;
    for (std::size_t index = 0; index < all.size(); ++index) {
        if (presences[index] == Presence::missing) {
            missing.push_back(all[index]);
        }
    }
    if (!missing.empty()) {
        if (const auto failure = exceptions.removeExceptions(missing)) {
            return printStoreError("write exceptions list", *failure);
        }
    }
    std::string text = removedText(missing.size(), "missing file");
    const std::size_t notAttached = countOf(Presence::notAttached, presences);
    if (notAttached > 0) {
        text += "Kept " + counted(notAttached, "file") + " on drives that are not attached.\n";
    }
    return print(text);
}

ExitStatus ExceptionsCommand::clear(ExceptionFile& exceptions) {
    if (const std::optional<StoreError> failure = exceptions.removeExceptions()) {
        return printStoreError("write exceptions list", *failure);
    }
    const ExitStatus status = print(asLine(exceptionsRemovedText()));
    return reportMovedAside(exceptions) ? ExitStatus::incomplete : status;
}

}  // namespace tarvin
