#include "cli/listed_input.h"

#include "cli/messages.h"
#include "platform/unique_fd.h"
#include "report/list_reader.h"
#include "text/shown_name.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string_view>
#include <utility>
#include <variant>

namespace tarvin {

namespace {

std::string shownInput(const std::string& path) {
    return path == "-" ? "standard input" : quotedName(path);
}

/// Why what is at the path cannot be a list; empty if it may be one. A pipe may: of the shell's
/// "<(command)" there is only a pipe.
std::string_view unusableKind(const std::string& path) {
    struct stat status{};
    if (::stat(path.c_str(), &status) != 0) {
        return {};
    }
    if (S_ISDIR(status.st_mode)) {
        return "it is a folder";
    }
    return S_ISREG(status.st_mode) || S_ISFIFO(status.st_mode) ? std::string_view()
                                                               : "it is neither a file nor a pipe";
}

std::string_view reasonOf(ListedState state) {
    switch (state) {
        case ListedState::notAbsolute:
            return "the path must be absolute, without empty, '.' and '..' parts";
        case ListedState::inexact:
            return "'filePath' and 'filePathBytes' differ";
        case ListedState::repeated:
            return "the list has it more than once";
        case ListedState::isFolder:
            return "it is a folder";
        case ListedState::isSpecial:
            return "it is not a regular file";
        case ListedState::inTrash:
            return "it is in a Trash folder";
        case ListedState::isOwn:
            return "it is a file of this program";
        case ListedState::excluded:
            return "it is on the exceptions list";
        case ListedState::locked:
            return "it is immutable";
        case ListedState::hasNoSurvivor:
            return "no file of its set that stays has the same content";
        case ListedState::survivorUnread:
            return "a file of its set that stays cannot be read";
        case ListedState::usable:
        case ListedState::repetition:
        case ListedState::unreadable:
        case ListedState::unread:
            break;
    }
    return {};
}

/// The message about a file; nullopt if the file was treated as listed, or the scan has reported
/// it.
std::optional<std::string> problemOf(const ListedFile& file) {
    switch (file.state) {
        case ListedState::usable:
        case ListedState::repetition:
        case ListedState::unread:
            return std::nullopt;
        case ListedState::unreadable:
            return failureText("read", quotedName(file.path), file.error.text());
        case ListedState::excluded:
        case ListedState::locked:
        case ListedState::hasNoSurvivor:
        case ListedState::survivorUnread:
            return file.keep
                       ? std::nullopt
                       : std::optional(failureText("move", quotedName(file.path) + " to the Trash",
                                                   reasonOf(file.state)));
        default:
            return failureText("use", quotedName(file.path) + " of the list", reasonOf(file.state));
    }
}

}  // namespace

std::shared_ptr<ListedFiles> readList(const std::string& path) {
    UniqueFd opened;
    if (path != "-") {
        // Before it is opened: a device may do something then, or block.
        if (const std::string_view kind = unusableKind(path); !kind.empty()) {
            printError(failureText("use list", shownInput(path), kind));
            return nullptr;
        }
        opened = UniqueFd(::open(path.c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC));
        if (!opened) {
            printPathError("read list", path, SystemError{errno}.text());
            return nullptr;
        }
    }
    auto read = readListedFiles(opened ? opened.number() : STDIN_FILENO);
    if (const auto* const error = std::get_if<ListError>(&read)) {
        printError(failureText("use list", shownInput(path), error->reason));
        return nullptr;
    }
    auto files = std::make_shared<ListedFiles>(std::get<ListedFiles>(std::move(read)));
    checkListedFiles(*files);
    return files;
}

bool reportListProblems(const ListedFiles& files) {
    bool isFine = true;
    for (const ListedFile& file : files) {
        if (const std::optional<std::string> problem = problemOf(file)) {
            printError(*problem);
            isFine = false;
        }
    }
    return isFine;
}

}  // namespace tarvin
