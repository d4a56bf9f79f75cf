#include "scan/compared_bytes.h"

#include <algorithm>

namespace tarvin {

BytesCompared ComparedBytes::now() const {
    if (listsLeft_.load(std::memory_order_acquire) > 0) {
        return {};
    }
    return {done_.load(std::memory_order_relaxed), total_.load(std::memory_order_relaxed)};
}

void ComparedBytes::addTo(std::atomic<std::uint64_t>& sum, std::uint64_t bytes) {
    std::uint64_t before = sum.load(std::memory_order_relaxed);
    while (!sum.compare_exchange_weak(before, saturatingSum(before, bytes),
                                      std::memory_order_relaxed)) {
    }
}

BytesLeft::BytesLeft(ComparedBytes& to, std::size_t fileCount, std::uint64_t fileSize)
    : to_(to), left_(fileCount) {
    for (std::atomic<std::uint64_t>& left : left_) {
        left.store(fileSize, std::memory_order_relaxed);
    }
}

void BytesLeft::compared(std::uint32_t file, std::uint64_t bytes) {
    std::atomic<std::uint64_t>& left = left_[file];
    std::uint64_t before = left.load(std::memory_order_relaxed);
    std::uint64_t share = std::min(before, bytes);
    while (!left.compare_exchange_weak(before, before - share, std::memory_order_relaxed)) {
        share = std::min(before, bytes);
    }
    to_.add(share);
}

void BytesLeft::finish(std::uint32_t file) {
    to_.add(left_[file].exchange(0, std::memory_order_relaxed));
}

void BytesLeft::finishAll() {
    for (std::uint32_t file = 0; file < left_.size(); ++file) {
        finish(file);
    }
}

}  // namespace tarvin
