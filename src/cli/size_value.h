#pragma once

#include "platform/result.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvin {

/// Bytes from a size as a user writes it: "1000", "1.5MB" or "2 GiB". KB, MB, GB and TB are powers
/// of 1,000, as in the program's own texts; KiB, MiB, GiB and TiB are powers of 1,024; case does
/// not matter. Rounded down to whole bytes. Returns the reason, for a message, if it is invalid.
/// Pure.
[[nodiscard]] Result<std::uint64_t, std::string> bytesFrom(std::string_view size);

}  // namespace tarvin
