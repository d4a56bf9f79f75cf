#pragma once

#include "platform/macos/mounts.h"

#include <vector>

namespace tarvin::macos {

/// What is mounted now, in the order of mounting; empty if the list cannot be read. Does not wait
/// for network volumes. Any thread.
[[nodiscard]] std::vector<Mount> readMounts();

}  // namespace tarvin::macos
