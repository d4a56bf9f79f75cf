#include "platform/file_lock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <thread>
#include <utility>

namespace tarvin {

namespace {

// A taker that waits for lock n holds lock n + turnOffset. So one taker is next, and a holder that
// has just released the lock queues behind it.
constexpr std::uint64_t turnOffset = std::uint64_t{1} << 62U;

// The first retries catch a lock that is held briefly; the later ones cost little CPU time.
constexpr std::chrono::microseconds minPause{50};
constexpr std::chrono::microseconds maxPause{5000};

// Locks of an open file are not in POSIX yet.
#ifdef F_OFD_SETLK
constexpr int setOpenFileLock = F_OFD_SETLK;
#else
// macOS has them from 10.15 on, but names them only in its kernel's header (bsd/sys/fcntl.h). Where
// the command is unknown, locking fails.
constexpr int setOpenFileLock = 90;
#endif

/// How long a RepeatedLock assumes that its file is still the one at the path.
constexpr std::chrono::seconds keptOpen{1};

/// How long it may take the lock again without checking for waiting takers.
constexpr std::chrono::milliseconds withoutQueue{1};

using Deadline = std::chrono::steady_clock::time_point;

/// The error number if the open file must not be used for locks, else 0.
int refusalOf(int descriptor) {
    struct stat status{};
    if (::fstat(descriptor, &status) != 0) {
        return errno;
    }
    // Root may use the files of the user who called it.
    const bool isOurs = status.st_uid == ::geteuid() || ::geteuid() == 0;
    return S_ISREG(status.st_mode) && isOurs ? 0 : EPERM;
}

/// `type` is F_RDLCK, F_WRLCK or F_UNLCK. Locks one byte on behalf of the open file, not of the
/// process: the system then releases it only with this descriptor, and two descriptors exclude each
/// other.
int lockByte(int descriptor, std::uint64_t number, short type) {
    struct flock range{};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = static_cast<off_t>(number);
    range.l_len = 1;
    while (::fcntl(descriptor, setOpenFileLock, &range) != 0) {
        if (errno != EINTR) {
            return errno == EAGAIN || errno == EACCES ? EBUSY : errno;
        }
    }
    return 0;
}

/// Exponential backoff.
class Pauses final {
 public:
    void wait() {
        std::this_thread::sleep_for(next_);
        next_ = std::min(next_ * 2, maxPause);
    }

 private:
    std::chrono::microseconds next_ = minPause;
};

bool isOver(Deadline deadline) {
    return std::chrono::steady_clock::now() >= deadline;
}

/// Retries until the lock is taken or the deadline has passed.
Result<FileLock> takeUntil(const LockFile& file, std::uint64_t number, Deadline deadline) {
    for (Pauses pauses;; pauses.wait()) {
        Result<FileLock> lock = file.tryTake(number);
        if (lock || lock.error().code != EBUSY || isOver(deadline)) {
            return lock;
        }
    }
}

/// The same with an open file. Returns 0 or the error number.
int lockUntil(int descriptor, std::uint64_t number, Deadline deadline) {
    for (Pauses pauses;; pauses.wait()) {
        const int failure = lockByte(descriptor, number, F_WRLCK);
        if (failure != EBUSY || isOver(deadline)) {
            return failure;
        }
    }
}

/// Opens or creates the file.
Result<UniqueFd> openLocks(const std::string& path) {
    UniqueFd file(::open(path.c_str(),
                         O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
                         S_IRUSR | S_IWUSR));
    if (!file) {
        return SystemError{errno};
    }
    if (const int failure = refusalOf(file.number()); failure != 0) {
        return SystemError{failure};
    }
    return file;
}

}  // namespace

Result<FileLock> LockFile::tryTake(std::uint64_t number, LockSharing sharing) const {
    Result<UniqueFd> file = openLocks(path_);
    if (!file) {
        return file.error();
    }
    const short type = sharing == LockSharing::shared ? F_RDLCK : F_WRLCK;
    if (const int failure = lockByte(file->number(), number, type); failure != 0) {
        return SystemError{failure};
    }
    return FileLock(std::move(*file));
}

Result<FileLock> LockFile::take(std::uint64_t number, std::chrono::milliseconds patience) const {
    const Deadline deadline = std::chrono::steady_clock::now() + patience;
    const Result<FileLock> turn = takeUntil(*this, number + turnOffset, deadline);
    if (!turn) {
        return turn.error();
    }
    return takeUntil(*this, number, deadline);
}

std::optional<SystemError> RepeatedLock::take(std::chrono::milliseconds patience) {
    const auto now = std::chrono::steady_clock::now();
    const Deadline deadline = now + patience;
    if (auto failure = open(now)) {
        return failure;
    }
    if (now - queued_ < withoutQueue && lockByte(locks_.number(), number_, F_WRLCK) == 0) {
        isHeld_ = true;
        return std::nullopt;
    }
    queued_ = now;
    int failure = lockUntil(locks_.number(), number_ + turnOffset, deadline);
    if (failure == 0) {
        failure = lockUntil(locks_.number(), number_, deadline);
        lockByte(locks_.number(), number_ + turnOffset, F_UNLCK);
    }
    isHeld_ = failure == 0;
    return isHeld_ ? std::nullopt : std::optional(SystemError{failure});
}

void RepeatedLock::release() {
    if (std::exchange(isHeld_, false)) {
        lockByte(locks_.number(), number_, F_UNLCK);
    }
}

std::optional<SystemError> RepeatedLock::open(std::chrono::steady_clock::time_point now) {
    if (locks_ && now - opened_ < keptOpen) {
        return std::nullopt;
    }
    locks_.close();
    Result<UniqueFd> opened = openLocks(file_.path());
    if (!opened) {
        return opened.error();
    }
    locks_ = std::move(*opened);
    opened_ = now;
    return std::nullopt;
}

}  // namespace tarvin
