#include "slow_devices/seek_model.h"

#include <algorithm>
#include <cmath>

namespace tarvin::devices {

std::chrono::nanoseconds SeekModel::transfer(std::uint64_t offset, std::uint64_t length) {
    std::chrono::nanoseconds time = timeUnderHead(length);
    if (offset != head_) {
        time += wayTo(offset);
        ++seeks_;
    }
    head_ = offset + length;
    return time;
}

std::chrono::nanoseconds SeekModel::wayTo(std::uint64_t offset) const {
    const std::uint64_t distance = offset > head_ ? offset - head_ : head_ - offset;
    const double share =
        std::min(1.0, static_cast<double>(distance) /
                          static_cast<double>(std::max<std::uint64_t>(figures_.bytes, 1)));
    // The arm accelerates for half of the way, so the time grows with the root of the distance.
    const auto arm = std::chrono::nanoseconds(std::llround(
        static_cast<double>((figures_.fullStroke - figures_.settle).count()) * std::sqrt(share)));
    const std::chrono::nanoseconds seek = figures_.settle + arm + figures_.turn / 2;
    return offset > head_ ? std::min(seek, timeUnderHead(distance)) : seek;
}

std::chrono::nanoseconds SeekModel::timeUnderHead(std::uint64_t bytes) const {
    return std::chrono::nanoseconds(
        std::llround(static_cast<double>(bytes) / figures_.bytesPerSecond * 1e9));
}

}  // namespace tarvin::devices
