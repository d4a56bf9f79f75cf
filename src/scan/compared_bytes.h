#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace tarvin {

// Sparse files can have sizes whose sum needs more than 64 bits. Such a sum is 2^64 - 1. Pure.

[[nodiscard]] constexpr std::uint64_t saturatingSum(std::uint64_t one, std::uint64_t other) {
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    return one > most - other ? most : one + other;
}
[[nodiscard]] constexpr std::uint64_t saturatingProduct(std::uint64_t size, std::uint64_t count) {
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    return count != 0 && size > most / count ? most : size * count;
}

/// How far a comparison is, in bytes. `total` is 0 while it is unknown.
struct BytesCompared {
    std::uint64_t done = 0;  ///< never more than `total`
    std::uint64_t total = 0;

    bool operator==(const BytesCompared&) const = default;
};

/// Counts the bytes of a comparison: those of all files that share their recorded size with another
/// file of their list. A file of which nothing more has to be read counts as done in full, so a
/// comparison that was not stopped ends with all bytes done. Both numbers end at 2^64 - 1. Any
/// thread.
class ComparedBytes final {
 public:
    /// `lists` is the number of lists to be compared; the total is known when all have been added.
    explicit ComparedBytes(std::size_t lists) : listsLeft_(lists) {}

    /// Adds the bytes to compare of one list. Must precede the first add() for that list.
    void addList(std::uint64_t bytes) {
        addTo(total_, bytes);
        listsLeft_.fetch_sub(1, std::memory_order_release);
    }

    /// Adds bytes that are done.
    void add(std::uint64_t bytes) { addTo(done_, bytes); }

    [[nodiscard]] BytesCompared now() const;

 private:
    static void addTo(std::atomic<std::uint64_t>& sum, std::uint64_t bytes);

    std::atomic<std::uint64_t> total_{0};
    std::atomic<std::uint64_t> done_{0};
    std::atomic<std::size_t> listsLeft_;
};

/// Reports to ComparedBytes what is done of the files of one class: each byte of a file once,
/// however many threads compare it. Any thread.
class BytesLeft final {
 public:
    /// `to` must outlive this object.
    BytesLeft(ComparedBytes& to, std::size_t fileCount, std::uint64_t fileSize);

    /// `bytes` more of the file have been compared. Ignores what exceeds its recorded size: the
    /// file may have grown since.
    void compared(std::uint32_t file, std::uint64_t bytes);
    /// Nothing more has to be read of the file.
    void finish(std::uint32_t file);
    void finishAll();

 private:
    ComparedBytes& to_;
    std::vector<std::atomic<std::uint64_t>> left_;  // by number of the file in the class
};

}  // namespace tarvin
