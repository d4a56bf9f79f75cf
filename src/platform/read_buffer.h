#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace tarvin {

/// Bytes at which the memory that files are read into begins: a page, and at least as much as the
/// longest line of a CPU cache. Kernels copy with the string instructions of x86, which on many
/// CPUs take up to twice as long if the target does not begin at a cache line.
inline constexpr std::size_t readBufferAlignment = 4096;

/// Deletes a ReadBuffer.
struct FreeReadBuffer {
    void operator()(std::byte* bytes) const noexcept {
        ::operator delete(bytes, std::align_val_t{readBufferAlignment});
    }
};

/// Memory for the content of files, aligned to readBufferAlignment.
using ReadBuffer = std::unique_ptr<std::byte[], FreeReadBuffer>;

/// The content is indeterminate. Throws std::bad_alloc.
[[nodiscard]] inline ReadBuffer makeReadBuffer(std::size_t bytes) {
    return ReadBuffer(
        static_cast<std::byte*>(::operator new(bytes, std::align_val_t{readBufferAlignment})));
}

}  // namespace tarvin
