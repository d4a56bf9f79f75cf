#include "platform/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <utility>

namespace tarvin {

namespace {

constexpr mode_t readableAndWritable = 0666;  // before the umask is applied

/// Returns 0 also where the file system cannot flush: losing the written data would be worse.
int syncWherePossible(int descriptor, FileCalls& calls) {
    const int failure = calls.sync(descriptor);
    return failure == EINVAL || failure == ENOTSUP ? 0 : failure;
}

}  // namespace

int FileCalls::createFile(const char* path, int flags, UniqueFd& file) {
    file = UniqueFd(::open(path, flags | O_WRONLY | O_CREAT | O_CLOEXEC, readableAndWritable));
    return file ? 0 : errno;
}

int FileCalls::openFolder(const char* path, UniqueFd& folder) {
    folder = UniqueFd(::open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return folder ? 0 : errno;
}

int FileCalls::write(int descriptor, std::string_view bytes, std::size_t& written) {
    const ssize_t result = ::write(descriptor, bytes.data(), bytes.size());
    written = result < 0 ? 0 : static_cast<std::size_t>(result);
    return result < 0 ? errno : 0;
}

int FileCalls::sync(int descriptor) {
#ifdef F_FULLFSYNC
    // On macOS fsync() leaves the bytes in the disk's own cache. Network volumes have nothing else.
    if (::fcntl(descriptor, F_FULLFSYNC) == 0) {
        return 0;
    }
#endif
    return ::fsync(descriptor) == 0 ? 0 : errno;
}

int FileCalls::rename(const char* from, const char* to) {
    return std::rename(from, to) == 0 ? 0 : errno;
}

FileCalls& systemFileCalls() {
    static FileCalls calls;
    return calls;
}

Result<std::unique_ptr<AtomicFile>> AtomicFile::create(std::string target, std::string temporary,
                                                       Leftover leftover, FileCalls& calls) {
    const int flags = O_NOFOLLOW | (leftover == Leftover::overwrite ? O_TRUNC : O_EXCL);
    UniqueFd file;
    if (const int failure = calls.createFile(temporary.c_str(), flags, file); failure != 0) {
        if (leftover == Leftover::overwrite) {
            // It may be a symbolic link, which is not followed: the next attempt succeeds without
            // it.
            ::unlink(temporary.c_str());
        }
        return SystemError{failure};
    }
    return std::unique_ptr<AtomicFile>(
        new AtomicFile(std::move(file), std::move(target), std::move(temporary), calls));
}

AtomicFile::AtomicFile(UniqueFd file, std::string target, std::string temporary, FileCalls& calls)
    : file_(std::move(file)),
      target_(std::move(target)),
      temporary_(std::move(temporary)),
      calls_(calls) {}

AtomicFile::~AtomicFile() {
    if (!keeps_) {
        removeTemporary();
    }
}

std::optional<SystemError> AtomicFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        std::size_t written = 0;
        const int failure = calls_.write(file_.number(), bytes, written);
        if (failure == 0) {
            bytes.remove_prefix(written);
        } else if (failure != EINTR) {
            return SystemError{failure};
        }
    }
    return std::nullopt;
}

void AtomicFile::copyPermissions() const {
    struct stat old{};
    if (::stat(target_.c_str(), &old) == 0) {
        static_cast<void>(::fchmod(file_.number(), old.st_mode & 0777U));
    }
}

std::optional<SystemError> AtomicFile::commit() {
    int failure = syncWherePossible(file_.number(), calls_);
    if (failure == 0) {
        failure = file_.close();
    }
    if (failure == 0) {
        failure = calls_.rename(temporary_.c_str(), target_.c_str());
    }
    if (failure == 0) {
        keeps_ = true;
        syncFolderOf(target_, calls_);
    }
    return failure == 0 ? std::nullopt : std::optional(SystemError{failure});
}

const std::string& AtomicFile::keepTemporary() {
    keeps_ = true;
    return temporary_;
}

void AtomicFile::removeTemporary() const {
    ::unlink(temporary_.c_str());
}

void syncFolderOf(const std::string& path, FileCalls& calls) {
    const std::string folder = std::filesystem::path(path).parent_path().native();
    UniqueFd opened;
    static_cast<void>(calls.openFolder(folder.empty() ? "." : folder.c_str(), opened));
    if (opened) {
        static_cast<void>(calls.sync(opened.number()));
    }
}

}  // namespace tarvin
