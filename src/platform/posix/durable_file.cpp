#include "platform/durable_file.h"

#include "platform/posix/exclusive_rename.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <thread>

namespace tarvin {

namespace {

constexpr std::chrono::milliseconds retryDelay{5};
constexpr int maxNamesTried = 10'000;

SystemError lastError() {
    return SystemError{errno};
}

/// Returns false with errno EEXIST if `to` exists. Some file systems cannot check and rename in one
/// step; there the caller's lock excludes other instances in between.
bool renameToFree(const std::string& from, const std::string& to) {
    const int failure = renameExclusively(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str());
    if (!isUnsupportedRename(failure)) {
        errno = failure;
        return failure == 0;
    }
    struct stat status{};
    if (::lstat(to.c_str(), &status) == 0) {
        errno = EEXIST;
        return false;
    }
    return std::rename(from.c_str(), to.c_str()) == 0;
}

/// The target of a symbolic link at `path`, or `path` itself.
std::string targetOf(const std::string& path) {
    std::error_code failure;
    const auto target = std::filesystem::canonical(path, failure);
    return failure ? path : target.native();
}

}  // namespace

std::optional<SystemError> replaceFile(const std::string& path, std::string_view bytes,
                                       FileCalls& calls) {
    const std::string target = targetOf(path);
    const auto file =
        AtomicFile::create(target, target + ".new", AtomicFile::Leftover::overwrite, calls);
    if (!file) {
        return file.error();
    }
    (*file)->copyPermissions();
    if (const auto failure = (*file)->write(bytes)) {
        return failure;
    }
    return (*file)->commit();
}

std::optional<SystemError> makePrivateFile(const std::string& path) {
    const UniqueFd made(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                               S_IRUSR | S_IWUSR));
    if (made) {
        return std::nullopt;
    }
    struct stat status{};
    if (errno != EEXIST || ::lstat(path.c_str(), &status) != 0) {
        return lastError();
    }
    if (S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    if (S_ISLNK(status.st_mode)) {
        return SystemError{ELOOP};
    }
    return SystemError{S_ISDIR(status.st_mode) ? EISDIR : EPERM};
}

Result<std::string> putAside(const std::string& path, std::string_view suffix) {
    std::string aside = path + std::string(suffix);
    for (int number = 2; number < maxNamesTried; ++number) {
        if (renameToFree(path, aside)) {
            syncFolderOf(path);
            return aside;
        }
        if (errno != EEXIST) {
            return lastError();
        }
        aside = path + std::string(suffix) + '-' + std::to_string(number);
    }
    return SystemError{EEXIST};
}

std::optional<SystemError> makeFolders(const std::string& path) {
    std::optional<SystemError> failure;
    for (std::size_t end = 0; end != std::string::npos;) {
        end = path.find('/', end + 1);
        if (::mkdir(path.substr(0, end).c_str(), S_IRWXU) != 0 && errno != EEXIST && !failure) {
            failure = lastError();  // the later ones only follow from it
        }
    }
    struct stat status{};
    if (::stat(path.c_str(), &status) == 0) {
        return S_ISDIR(status.st_mode) ? std::nullopt : std::optional(SystemError{ENOTDIR});
    }
    return failure ? failure : std::optional(lastError());
}

Result<FolderLock> FolderLock::take(const std::string& folder, std::chrono::milliseconds patience) {
    if (const std::optional<SystemError> failure = makeFolders(folder)) {
        return *failure;
    }
    FolderLock lock(UniqueFd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
    if (!lock.folder_) {
        return lastError();
    }
    const auto limit = std::chrono::steady_clock::now() + patience;
    while (::flock(lock.folder_.number(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return lastError();
        }
        if (std::chrono::steady_clock::now() > limit) {
            return SystemError{EBUSY};
        }
        std::this_thread::sleep_for(retryDelay);
    }
    return lock;
}

}  // namespace tarvin
