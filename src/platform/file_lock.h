#pragma once

#include "platform/result.h"
#include "platform/unique_fd.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace tarvin {

/// An exclusive lock excludes all others, a shared one only exclusive ones.
enum class LockSharing : std::uint8_t { exclusive, shared };

/// One lock of a LockFile, released on destruction, or by the system when the process ends. Locks
/// with the same number exclude each other also between threads of one process. A forked child
/// shares the lock with its parent until it exits or calls exec().
class FileLock final {
 public:
 private:
    friend class LockFile;
    explicit FileLock(UniqueFd file) : file_(std::move(file)) {}

    UniqueFd file_;
};

/// An empty file whose bytes are locked by number. Created when a lock is first taken, readable and
/// writable by the user alone. Refuses a symbolic link, a folder, and a file of another user. Any
/// thread.
class LockFile final {
 public:
    /// `path` is absolute, native bytes; its folder must exist before a lock is taken.
    explicit LockFile(std::string path) : path_(std::move(path)) {}

    /// Takes lock `number` (at most 2^62 - 1) without blocking. Fails with EBUSY if it is held,
    /// with other codes if the file cannot be used.
    [[nodiscard]] Result<FileLock> tryTake(std::uint64_t number,
                                           LockSharing sharing = LockSharing::exclusive) const;

    /// Blocks until lock `number` is free, at most for `patience`; then fails with EBUSY. A holder
    /// that releases the lock and takes it again queues behind those already waiting.
    [[nodiscard]] Result<FileLock> take(std::uint64_t number,
                                        std::chrono::milliseconds patience) const;

    [[nodiscard]] const std::string& path() const { return path_; }

 private:
    std::string path_;
};

/// One lock of a LockFile for an owner that takes it repeatedly: the file stays open in between and
/// is reopened once a second, so that a replaced one is noticed. Waiting takers go first, except
/// that the owner may take it again for a millisecond. Excludes, and is excluded by, FileLocks with
/// the same number. One thread.
class RepeatedLock final {
 public:
    /// `number` is at most 2^62 - 1.
    RepeatedLock(LockFile file, std::uint64_t number) : file_(std::move(file)), number_(number) {}
    RepeatedLock(const RepeatedLock&) = delete;
    RepeatedLock& operator=(const RepeatedLock&) = delete;
    /// Releases the lock.
    ~RepeatedLock() = default;

    /// As LockFile::take(). Requires that the lock is not held. Returns nullopt if it is held now.
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
    std::chrono::steady_clock::time_point queued_;  // last time behind waiting takers
};

}  // namespace tarvin
