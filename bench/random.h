#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>

namespace tarvin::bench {

/// SplitMix64: 8 random bytes a step; every seed is suitable.
class Random final {
 public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    /// Any 64-bit number.
    std::uint64_t next() {
        state_ += 0x9e3779b97f4a7c15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30U)) * 0xbf58476d1ce4e5b9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94d049bb133111ebU;
        return mixed ^ (mixed >> 31U);
    }

    /// A number in [0, limit). Requires limit > 0. The modulo bias is below 2^-40 for the limits
    /// used here.
    std::uint64_t below(std::uint64_t limit) { return next() % limit; }

    /// A number in [0, 1).
    double unit() { return static_cast<double>(next() >> 11U) * 0x1.0p-53; }

    /// Fills `bytes`. Only the last call of a stream may have a length that is not a multiple of 8:
    /// the rest of a step is lost.
    void fill(std::span<char> bytes) {
        while (!bytes.empty()) {
            const std::uint64_t word = next();
            const std::size_t length = std::min(bytes.size(), sizeof word);
            std::memcpy(bytes.data(), &word, length);
            bytes = bytes.subspan(length);
        }
    }

 private:
    std::uint64_t state_;
};

}  // namespace tarvin::bench
