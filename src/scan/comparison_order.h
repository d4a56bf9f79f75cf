#pragma once

#include <cstdint>

namespace tarvin {

/// The order in which the bytes of a file are compared: a small first range, then the end of the
/// file, where files that begin alike differ most often, then the middle from front to back. A
/// position is the number of bytes before it in this order.
class ComparisonOrder final {
 public:
    /// A range of the file, in bytes.
    struct Range {
        std::uint64_t offset = 0;
        std::uint64_t length = 0;
    };

    static constexpr std::uint64_t edgeBytes = 8 * 1024;

    explicit ComparisonOrder(std::uint64_t fileSize);

    /// The longest range that begins at `position`, which is below the size.
    [[nodiscard]] Range rangeAt(std::uint64_t position) const;
    [[nodiscard]] std::uint64_t size() const { return size_; }
    /// Position at which the part between the two edges begins.
    [[nodiscard]] std::uint64_t middle() const { return first_ + last_; }

 private:
    std::uint64_t size_;
    std::uint64_t first_;
    std::uint64_t last_;
};

}  // namespace tarvin
