#pragma once

#include <cstdint>
#include <optional>

namespace tarvin::macos {

/// A number of the rotational disk under a file system, the same for all its partitions and
/// volumes; `device` is an `st_dev`. nullopt if the disk does not rotate or the I/O registry does
/// not tell. Takes some milliseconds. Any thread.
[[nodiscard]] std::optional<std::uint64_t> rotationalDiskUnder(std::uint64_t device);

}  // namespace tarvin::macos
