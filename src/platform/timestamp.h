#pragma once

#include <chrono>

namespace tarvin {

/// A point in time as file systems record it: nanoseconds since 1970-01-01 UTC. Covers the years
/// 1678 to 2262; times outside are clamped to that range.
using Timestamp = std::chrono::sys_time<std::chrono::nanoseconds>;

}  // namespace tarvin
