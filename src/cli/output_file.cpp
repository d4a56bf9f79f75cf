#include "cli/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tarvin {

namespace {

constexpr mode_t readableAndWritable = 0666;  // less what the user's mask takes away

/// What stands at a path, symbolic links followed: none if nothing does.
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

/// "/dev/stdout" and the like: to replace what the shell has opened would lose what is in it.
bool isStandardOutput(const struct stat& status) {
    struct stat ours{};
    return ::fstat(STDOUT_FILENO, &ours) == 0 && ours.st_dev == status.st_dev &&
           ours.st_ino == status.st_ino;
}

/// An unused name in the folder of `target`. Such a name has no extension, so that a scan of this
/// very folder passes the file over.
std::string temporaryName(const std::string& target, int attempt) {
    const auto folder = std::filesystem::path(target).parent_path();
    const std::string name =
        ".tarvin-" + std::to_string(::getpid()) + '-' + std::to_string(attempt);
    return (folder / name).native();
}

/// Not every file system knows how to make sure; that is no reason to lose the result.
bool isSynced(int descriptor) {
    return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP;
}

}  // namespace

Result<std::unique_ptr<OutputFile>> OutputFile::open(const std::string& path) {
    if (path == "-") {
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the answer owns it.
        return std::unique_ptr<OutputFile>(new OutputFile(STDOUT_FILENO, false, "", ""));
    }
    const auto status = statusOf(path);
    if (!status) {
        return status.error();
    }
    const std::optional<struct stat>& present = *status;
    if (!present) {
        return beginBeside(path);
    }
    if (isStandardOutput(*present)) {
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the answer owns it.
        return open("-");
    }
    if (!S_ISREG(present->st_mode)) {
        return openDirectly(path);
    }
    if (::access(path.c_str(), W_OK) != 0) {
        return SystemError{errno};
    }
    std::error_code failure;
    const auto target = std::filesystem::canonical(path, failure);
    return failure ? SystemError{failure.value()} : beginBeside(target.native());
}

Result<std::unique_ptr<OutputFile>> OutputFile::openDirectly(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) {
        return SystemError{errno};
    }
    return std::unique_ptr<OutputFile>(new OutputFile(descriptor, true, "", path));
}

Result<std::unique_ptr<OutputFile>> OutputFile::beginBeside(const std::string& target) {
    for (int attempt = 0;; ++attempt) {
        std::string temporary = temporaryName(target, attempt);
        const int descriptor =
            ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, readableAndWritable);
        if (descriptor >= 0) {
            return std::unique_ptr<OutputFile>(
                new OutputFile(descriptor, true, std::move(temporary), target));
        }
        if (errno != EEXIST) {
            return SystemError{errno};
        }
    }
}

OutputFile::OutputFile(int descriptor, bool owned, std::string temporary, std::string target)
    : descriptor_(descriptor),
      owned_(owned),
      temporary_(std::move(temporary)),
      target_(std::move(target)),
      output_(descriptor) {}

OutputFile::~OutputFile() {
    static_cast<void>(closeOwned());
    if (!keeps_) {
        removeTemporary();
    }
}

std::optional<SystemError> OutputFile::commit() {
    if (!output_.flush()) {
        return output_.error();
    }
    if (!temporary_.empty() && !isSynced(descriptor_)) {
        return SystemError{errno};
    }
    if (const auto failure = closeOwned()) {
        return failure;
    }
    if (!temporary_.empty() && std::rename(temporary_.c_str(), target_.c_str()) != 0) {
        return SystemError{errno};
    }
    keeps_ = true;
    return std::nullopt;
}

std::string OutputFile::keepUnfinished() {
    keeps_ = true;
    return temporary_;
}

void OutputFile::removeTemporary() const {
    if (!temporary_.empty()) {
        ::unlink(temporary_.c_str());
    }
}

std::optional<SystemError> OutputFile::closeOwned() {
    if (!std::exchange(owned_, false)) {
        return std::nullopt;
    }
    const bool closed = ::close(descriptor_) == 0 || errno == EINTR;
    return closed ? std::nullopt : std::optional(SystemError{errno});
}

}  // namespace tarvin
