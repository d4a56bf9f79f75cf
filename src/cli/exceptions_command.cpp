#include "cli/exceptions_command.h"

#include "cli/common_options.h"
#include "cli/messages.h"
#include "cli/usage_texts.h"
#include "platform/file_paths.h"
#include "platform/file_system.h"
#include "scan/texts.h"
#include "text/shown_name.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <optional>
#include <string_view>

namespace tarvin {

namespace {

constexpr const char* exceptionsExamples =
    "Examples:\n"
    "  tarvin exceptions add ~/Pictures/keep-both.jpg\n"
    "  tarvin exceptions list\n"
    "\n"
    "An exception is a path: a moved or renamed file is scanned again.\n"
    "\n"
    "Exit status:\n"
    "  0    done\n"
    "  1    a file does not exist, or the list could not be read or written\n"
    "  2    usage error; nothing was done";

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

}  // namespace

CLI::App& ExceptionsCommand::addTo(CLI::App& program) {
    CLI::App* command =
        program.add_subcommand("exceptions", "Show or edit the list of excluded files");
    command->footer(exceptionsExamples);
    list_ = command->add_subcommand("list", "Print the excluded files");
    add_ = command->add_subcommand("add", "Exclude files");
    add_->add_option("FILE", files_, "File to exclude")->type_name("")->required();
    clear_ = command->add_subcommand("clear", "Empty the list");
    for (CLI::App* each : {list_, add_, clear_}) {
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
    if (!list_->parsed() && !add_->parsed() && !clear_->parsed()) {
        return refuse(missingCommandText() + ": list, add or clear", "tarvin exceptions");
    }
    const std::optional<std::string> folder = platform_.applicationSupportFolder();
    if (!folder) {
        return printNoHomeFolder(list_->parsed() ? "read exceptions" : "store exceptions");
    }
    ExceptionFile exceptions(folder);
    const std::optional<StoreError> failure = exceptions.load();
    if (list_->parsed()) {
        return failure ? printStoreError("read exceptions list", *failure) : list(exceptions);
    }
    // Writing moves a damaged list aside.
    return add_->parsed() ? add(exceptions) : clear(exceptions);
}

ExitStatus ExceptionsCommand::list(const ExceptionFile& exceptions) {
    std::string text;
    for (const std::string& path : exceptions.exceptionArrayData()) {
        text += shownName(path) + '\n';
    }
    return print(text);
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

ExitStatus ExceptionsCommand::clear(ExceptionFile& exceptions) {
    if (const std::optional<StoreError> failure = exceptions.removeExceptions()) {
        return printStoreError("write exceptions list", *failure);
    }
    const ExitStatus status = print(asLine(exceptionsRemovedText()));
    return reportMovedAside(exceptions) ? ExitStatus::incomplete : status;
}

}  // namespace tarvin
