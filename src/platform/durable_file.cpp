#include "platform/durable_file.h"

#include "platform/exclusive_rename.h"

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
#include <utility>

namespace tarvin {

namespace {

constexpr mode_t readableAndWritable = 0666;  // less what the user's mask takes away
constexpr std::chrono::milliseconds betweenTries{5};
constexpr int mostNamesTried = 10'000;

SystemError lastError() {
    return SystemError{errno};
}

/// A descriptor that closes itself.
class Opened final {
 public:
    explicit Opened(int number) : number_(number) {}
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() {
        if (number_ >= 0) {
            ::close(number_);
        }
    }

    explicit operator bool() const { return number_ >= 0; }
    [[nodiscard]] int number() const { return number_; }

 private:
    int number_;
};

/// Not every file system knows how to make sure; that is no reason to lose what is written.
bool isSynced(int descriptor) {
    return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP;
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written < 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// The new file, safely on the disk, with the permissions of the one it is to replace.
std::optional<SystemError> writeNew(const std::string& path, const std::string& like,
                                    std::string_view bytes) {
    const Opened file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC,
                             readableAndWritable));
    if (!file) {
        return lastError();
    }
    struct stat old{};
    if (::stat(like.c_str(), &old) == 0) {
        // Not every file system knows permissions; that is no reason to lose what is written.
        static_cast<void>(::fchmod(file.number(), old.st_mode & 0777U));
    }
    if (!writeAll(file.number(), bytes) || !isSynced(file.number())) {
        return lastError();
    }
    return std::nullopt;
}

/// So that the new name, too, outlives a crash.
void syncFolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().native();
    const Opened opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened) {
        static_cast<void>(isSynced(opened.number()));
    }
}

/// False, with EEXIST, where something stands at `to`. Not every file system can look and rename in
/// one step; there the caller's lock keeps other copies of the program away in between.
bool renameToFree(const std::string& from, const std::string& to) {
    errno = renameExclusively(from, to);
    if (errno == 0) {
        return true;
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return false;
    }
    struct stat status{};
    if (::lstat(to.c_str(), &status) == 0) {
        errno = EEXIST;
        return false;
    }
    return std::rename(from.c_str(), to.c_str()) == 0;
}

/// Where a link at `path` leads, or `path` itself.
std::string targetOf(const std::string& path) {
    std::error_code failure;
    const auto target = std::filesystem::canonical(path, failure);
    return failure ? path : target.native();
}

}  // namespace

std::optional<SystemError> replaceFile(const std::string& path, std::string_view bytes) {
    const std::string target = targetOf(path);
    const std::string fresh = target + ".new";
    std::optional<SystemError> failure = writeNew(fresh, target, bytes);
    if (!failure && std::rename(fresh.c_str(), target.c_str()) != 0) {
        failure = lastError();
    }
    if (failure) {
        ::unlink(fresh.c_str());
        return failure;
    }
    syncFolderOf(target);
    return std::nullopt;
}

std::optional<SystemError> makePrivateFile(const std::string& path) {
    const Opened made(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
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
    for (int number = 2; number < mostNamesTried; ++number) {
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
            failure = lastError();  // those that come after only follow from it
        }
    }
    struct stat status{};
    if (::stat(path.c_str(), &status) == 0) {
        // What matters is whether the last one is there.
        return S_ISDIR(status.st_mode) ? std::nullopt : std::optional(SystemError{ENOTDIR});
    }
    return failure ? failure : std::optional(lastError());
}

Result<FolderLock> FolderLock::take(const std::string& folder, std::chrono::milliseconds patience) {
    if (const std::optional<SystemError> failure = makeFolders(folder)) {
        return *failure;
    }
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) {
        return lastError();
    }
    FolderLock lock(descriptor);
    const auto limit = std::chrono::steady_clock::now() + patience;
    while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return lastError();
        }
        if (std::chrono::steady_clock::now() > limit) {
            return SystemError{EBUSY};
        }
        std::this_thread::sleep_for(betweenTries);
    }
    return lock;
}

FolderLock::FolderLock(FolderLock&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)) {}

FolderLock::~FolderLock() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

}  // namespace tarvin
