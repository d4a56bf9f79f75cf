#pragma once

#include <algorithm>
#include <cstdint>

namespace tarvin {

/// Returns `counter - part`, but never less than 0: a file can be removed with a mark that was
/// never counted (see Set::markAllFiles). Files or bytes.
[[nodiscard]] constexpr std::uint64_t lessened(std::uint64_t counter, std::uint64_t part) {
    return counter - std::min(counter, part);
}

}  // namespace tarvin
