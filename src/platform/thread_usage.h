#pragma once

#include <cstdint>

namespace tarvin {

/// The number of 512-byte blocks that the calling thread has read from storage devices so far, not
/// from the page cache. 0 where the system does not count them. Any thread.
std::uint64_t deviceReadsOfThisThread();

}  // namespace tarvin
