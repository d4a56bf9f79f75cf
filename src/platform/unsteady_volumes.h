#pragma once

#include "platform/file_system.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <unordered_set>

namespace tarvin {

/// The volumes whose inode numbers or dates change although no file does, as on some network
/// volumes and FUSE file systems: there the metadata cannot show that a file is the same, nor that
/// it is another, nor that it is unchanged. Such a volume is called unsteady. What holds for its
/// files:
///
/// - Size and bytes are all that is known of a file. Its bytes are compared twice before they count
///   as equal to others, and again before and after a move.
/// - Two paths may lead to one file, and equal inode numbers may be those of two files.
/// - A file never counts as the copy of the file at its own path.
/// - After a move the file that stays must still be there, by its path and with the same bytes.
///
/// A volume is unsteady only once it has given answers that no change of a file can cause, so a
/// file that is being written does not make it so. If it is taken for unsteady wrongly, reading
/// takes longer, and nothing else changes. Any thread.
class UnsteadyVolumes final {
 public:
    UnsteadyVolumes() = default;
    UnsteadyVolumes(const UnsteadyVolumes&) = delete;
    UnsteadyVolumes& operator=(const UnsteadyVolumes&) = delete;

    /// Whether the volume with this device number is known to be unsteady. Costs nothing while none
    /// is.
    [[nodiscard]] bool contains(std::uint64_t device) const;

    /// Asks for the attributes of an open file or folder up to eight times, past the system's
    /// cache, and adds its volume if two answers contradict each other: another inode number, a
    /// date of change that goes back, or another date of modification at the same date of change.
    /// Returns whether the volume is known to be unsteady. May block as long as eight such calls.
    bool examine(FileSystem& fileSystem, const Descriptor& open);

    /// Adds the volume if a file that was opened twice by its path has another inode number now,
    /// but the same size and dates, that of change among them: a file that takes the place of
    /// another gets a new date of change. Returns whether the volume is known to be unsteady.
    bool addIfRenumbered(const FileAttributes& before, const FileAttributes& now);

 private:
    void add(std::uint64_t device);

    std::atomic<bool> any_{false};
    mutable std::mutex mutex_;
    std::unordered_set<std::uint64_t> devices_;  // guarded by mutex_
};

}  // namespace tarvin
