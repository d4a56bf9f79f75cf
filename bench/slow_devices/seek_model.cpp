#include "slow_devices/seek_model.h"

#include <algorithm>
#include <cmath>

namespace tarvin::devices {

std::chrono::nanoseconds SeekModel::transfer(std::uint64_t offset, std::uint64_t length) {
    const bool isForward = offset >= head_;
    const std::uint64_t distance = isForward ? offset - head_ : head_ - offset;
    const std::chrono::nanoseconds gap = timeUnderHead(distance);
    const std::chrono::nanoseconds seek = seekAcross(distance);
    const bool moves = !isForward || seek < gap;
    const std::chrono::nanoseconds way = moves ? seek : gap;
    seeks_ += moves ? 1U : 0U;
    seekTime_ += way;
    head_ = offset + length;
    return way + timeUnderHead(length);
}

/// With the half turn after it.
std::chrono::nanoseconds SeekModel::seekAcross(std::uint64_t distance) const {
    const double share =
        std::min(1.0, static_cast<double>(distance) /
                          static_cast<double>(std::max<std::uint64_t>(figures_.bytes, 1)));
    // The arm accelerates for half of the way, so the time grows with the root of the distance.
    const auto arm = std::chrono::nanoseconds(std::llround(
        static_cast<double>((figures_.fullStroke - figures_.settle).count()) * std::sqrt(share)));
    return figures_.settle + arm + figures_.turn / 2;
}

std::chrono::nanoseconds SeekModel::timeUnderHead(std::uint64_t bytes) const {
    return std::chrono::nanoseconds(
        std::llround(static_cast<double>(bytes) / figures_.bytesPerSecond * 1e9));
}

}  // namespace tarvin::devices
