#include "report/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tarvin {

namespace {

/// Follows symbolic links. nullopt if nothing is at the path.
Result<std::optional<struct stat>> statusOf(const std::string& path) {
    struct stat status{};
    if (::stat(path.c_str(), &status) == 0) {
        return std::optional(status);
    }
    if (errno == ENOENT && !path.empty()) {
        return std::optional<struct stat>();
    }
    return SystemError{errno};
}

bool isLink(const std::string& path) {
    struct stat status{};
    return ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// Whether it is the file that the shell has opened as standard output ("/dev/stdout"): replacing
/// that would lose its content.
bool isStandardOutput(const struct stat& status) {
    struct stat ours{};
    return ::fstat(STDOUT_FILENO, &ours) == 0 && ours.st_dev == status.st_dev &&
           ours.st_ino == status.st_ino;
}

/// A name in the folder of `target`, without an extension, so that a scan of that folder skips it.
std::string temporaryName(const std::string& target, int attempt) {
    const auto folder = std::filesystem::path(target).parent_path();
    const std::string name =
        ".tarvin-" + std::to_string(::getpid()) + '-' + std::to_string(attempt);
    return (folder / name).native();
}

}  // namespace

Result<std::unique_ptr<OutputFile>, std::string> OutputFile::open(const std::string& path,
                                                                  FileCalls& calls) {
    if (path == "-") {
        return writingTo(STDOUT_FILENO, UniqueFd());
    }
    const auto status = statusOf(path);
    if (!status) {
        return status.error().text();
    }
    const std::optional<struct stat>& present = *status;
    if (!present) {
        return openNew(path, calls);
    }
    if (isStandardOutput(*present)) {
        return open("-", calls);
    }
    return withText(S_ISREG(present->st_mode) ? beginInPlaceOf(path, calls) : openDirectly(path));
}

Result<std::unique_ptr<OutputFile>, std::string> OutputFile::openRegular(const std::string& path,
                                                                         FileCalls& calls) {
    const auto status = statusOf(path);
    if (!status) {
        return status.error().text();
    }
    const std::optional<struct stat>& present = *status;
    if (!present) {
        return openNew(path, calls);
    }
    if (S_ISDIR(present->st_mode)) {
        return SystemError{EISDIR}.text();
    }
    if (!S_ISREG(present->st_mode)) {
        return std::string("not a regular file");
    }
    return withText(beginInPlaceOf(path, calls));
}

/// Nothing is at the path, or at the end of a link.
OutputFile::Opened OutputFile::openNew(const std::string& path, FileCalls& calls) {
    if (isLink(path)) {
        return std::string("a link to a missing file");
    }
    return withText(beginBeside(path, calls));
}

OutputFile::Opened OutputFile::withText(Result<std::unique_ptr<OutputFile>>&& opened) {
    if (!opened) {
        return opened.error().text();
    }
    return std::move(*opened);
}

Result<std::unique_ptr<OutputFile>> OutputFile::beginInPlaceOf(const std::string& present,
                                                               FileCalls& calls) {
    if (::access(present.c_str(), W_OK) != 0) {
        return SystemError{errno};
    }
    std::error_code failure;
    const auto target = std::filesystem::canonical(present, failure);
    return failure ? SystemError{failure.value()} : beginBeside(target.native(), calls);
}

Result<std::unique_ptr<OutputFile>> OutputFile::openDirectly(const std::string& path) {
    UniqueFd file(::open(path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
    if (!file) {
        return SystemError{errno};
    }
    const int descriptor = file.number();
    return writingTo(descriptor, std::move(file));
}

Result<std::unique_ptr<OutputFile>> OutputFile::beginBeside(const std::string& target,
                                                            FileCalls& calls) {
    for (int attempt = 0;; ++attempt) {
        auto file = AtomicFile::create(target, temporaryName(target, attempt),
                                       AtomicFile::Leftover::refuse, calls);
        if (file) {
            const int descriptor = (*file)->descriptor();
            return writingTo(descriptor, std::move(*file));
        }
        if (file.error().code != EEXIST) {
            return file.error();
        }
    }
}

std::unique_ptr<OutputFile> OutputFile::writingTo(int descriptor, Owner owner) {
    return std::unique_ptr<OutputFile>(new OutputFile(descriptor, std::move(owner)));
}

OutputFile::OutputFile(int descriptor, Owner owner)
    : owner_(std::move(owner)), output_(descriptor) {}

std::optional<SystemError> OutputFile::commit() {
    if (!output_.flush()) {
        return output_.error();
    }
    if (const auto* const file = replacement()) {
        return (*file)->commit();
    }
    const int failure = std::get<UniqueFd>(owner_).close();
    return failure == 0 ? std::nullopt : std::optional(SystemError{failure});
}

std::string OutputFile::keepUnfinished() {
    const auto* const file = replacement();
    return file == nullptr ? "" : (*file)->keepTemporary();
}

void OutputFile::removeTemporary() const {
    if (const auto* const file = replacement()) {
        (*file)->removeTemporary();
    }
}

}  // namespace tarvin
