#pragma once

#include <chrono>
#include <cstdint>

namespace tarvin::devices {

/// The figures of a disk.
struct DiskFigures {
    std::uint64_t bytes = 0;  ///< of the disk; the arm crosses them all in one full stroke
    std::chrono::nanoseconds settle{800'000};         ///< a seek to the next track
    std::chrono::nanoseconds fullStroke{14'000'000};  ///< a seek from the first track to the last
    std::chrono::nanoseconds turn{8'333'333};         ///< 7,200 turns a minute
    double bytesPerSecond = 180e6;
};

/// The time that a rotating disk with one arm takes for each transfer. The defaults of DiskFigures
/// are those of 7,200 rpm desktop disks: 8.4 ms for a seek across a third of the disk, half a turn
/// of 4.2 ms after it, 180 MB/s. A transfer that begins where the last one ended needs no seek; one
/// that begins a little after it waits until the gap has passed under the head, if that is sooner
/// than a seek. No cache, no reordering: the kernel's scheduler orders requests before they arrive.
///
/// One thread at a time.
class SeekModel final {
 public:
    explicit SeekModel(const DiskFigures& figures) : figures_(figures) {}

    /// Returns how long a transfer of `length` bytes at `offset` takes, and moves the head to its
    /// end.
    std::chrono::nanoseconds transfer(std::uint64_t offset, std::uint64_t length);

    /// The transfers so far for which the arm moved.
    [[nodiscard]] std::uint64_t seeks() const { return seeks_; }
    /// The time of all transfers so far in which nothing was transferred: moves of the arm, the
    /// half turns after them, and gaps that passed under the head.
    [[nodiscard]] std::chrono::nanoseconds seekTime() const { return seekTime_; }

 private:
    [[nodiscard]] std::chrono::nanoseconds seekAcross(std::uint64_t distance) const;
    [[nodiscard]] std::chrono::nanoseconds timeUnderHead(std::uint64_t bytes) const;

    const DiskFigures figures_;
    std::uint64_t head_ = 0;
    std::uint64_t seeks_ = 0;
    std::chrono::nanoseconds seekTime_{};
};

}  // namespace tarvin::devices
