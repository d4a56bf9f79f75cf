#pragma once

#include <algorithm>
#include <cstdint>

namespace tarvin {

/// A counter of files or bytes after a part of it was taken away. It never falls below 0: a mark
/// that was never counted (see Set::markAllFiles) can leave with its file all the same.
[[nodiscard]] constexpr std::uint64_t lessened(std::uint64_t counter, std::uint64_t part) {
    return counter - std::min(counter, part);
}

}  // namespace tarvin
