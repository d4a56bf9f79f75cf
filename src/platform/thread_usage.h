#pragma once

#include <cstdint>

namespace tarvin {

/// How much the calling thread has had to fetch from storage devices so far, in 512-byte blocks.
/// What came from memory does not count. 0 where the system does not keep account.
std::uint64_t deviceReadsOfThisThread();

}  // namespace tarvin
