#pragma once

#include <atomic>

namespace tarvin {

/// The number of threads that were left behind by their owner, because they blocked too long, and
/// still run. Any thread.
inline std::atomic<int> leftThreads{0};

}  // namespace tarvin
