#pragma once

#include "platform/result.h"
#include "platform/unique_fd.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace tarvin {

/// Exclusive holders keep everybody else out, shared ones only exclusive ones.
enum class LockSharing : std::uint8_t { exclusive, shared };

/// One lock of a file of locks, held until destruction. The system releases it when the process
/// ends, however it ends. Two locks of one number exclude each other also within one process,
/// whichever threads take them. A child that a fork() leaves behind holds the lock with its parent
/// until it exits or starts another program.
class FileLock final {
 public:
 private:
    friend class LockFile;
    explicit FileLock(UniqueFd file) : file_(std::move(file)) {}

    UniqueFd file_;
};

/// A file in a folder of the user's whose single bytes are locked by number; its content is empty.
/// The file is made when a lock is first taken, readable and writable by the user alone. A link, a
/// folder or a file of another user in its place is refused. Any thread.
class LockFile final {
 public:
    /// `path` is absolute, native bytes; its folder must be there before a lock is taken.
    explicit LockFile(std::string path) : path_(std::move(path)) {}

    /// Takes lock `number` (at most 2^62 - 1) if it is free; EBUSY if it is not, other codes if the
    /// file cannot be used.
    [[nodiscard]] Result<FileLock> tryTake(std::uint64_t number,
                                           LockSharing sharing = LockSharing::exclusive) const;

    /// Blocks until lock `number` is free, at most for `patience`; then EBUSY. Whoever releases the
    /// lock and takes it again comes after those who were waiting already.
    [[nodiscard]] Result<FileLock> take(std::uint64_t number,
                                        std::chrono::milliseconds patience) const;

    [[nodiscard]] const std::string& path() const { return path_; }

 private:
    std::string path_;
};

/// One lock of a file of locks, for one who takes it again and again: the file stays open between,
/// and is opened anew once a second, so that a replaced one is noticed. Those who wait come first,
/// but for a millisecond in which it may be released and taken many times. Excludes, and is
/// excluded by, FileLocks of the same number. One thread.
class RepeatedLock final {
 public:
    /// `number` is at most 2^62 - 1.
    RepeatedLock(LockFile file, std::uint64_t number) : file_(std::move(file)), number_(number) {}
    RepeatedLock(const RepeatedLock&) = delete;
    RepeatedLock& operator=(const RepeatedLock&) = delete;
    /// Releases the lock.
    ~RepeatedLock() = default;

    /// As LockFile::take(); it must not be held. None if it is held now.
    [[nodiscard]] std::optional<SystemError> take(std::chrono::milliseconds patience);
    /// Does nothing if it is not held.
    void release();

 private:
    [[nodiscard]] std::optional<SystemError> open(std::chrono::steady_clock::time_point now);

    const LockFile file_;
    const std::uint64_t number_;
    UniqueFd locks_;
    bool isHeld_ = false;
    std::chrono::steady_clock::time_point opened_;
    std::chrono::steady_clock::time_point queued_;  // looked last whether others wait
};

}  // namespace tarvin
