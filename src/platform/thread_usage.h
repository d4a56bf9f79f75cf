#pragma once

#include <cstdint>

namespace tarvin {

/// What the calling thread has read from storage devices so far, in 512-byte blocks, without reads
/// from the page cache. 0 where the system does not count it. Any thread.
std::uint64_t deviceReadsOfThisThread();

}  // namespace tarvin
