#pragma once

#include <cstddef>

namespace tarvin {

/// Finds out how many calls of one kind are worth making at the same time.
///
/// Starts with two and doubles them as long as that is faster. If it is not, it goes back, and
/// tries again later: other work may have taken the threads. Some networks answer one lookup of
/// each folder at a time; more at once would only keep threads from other folders.
///
/// One thread at a time.
class ConcurrencySearch final {
 public:
    /// `most` is at least 1.
    explicit ConcurrencySearch(std::size_t most);

    /// How many calls to make at once next; 1 to `most`.
    [[nodiscard]] std::size_t atOnce() const { return atOnce_; }
    /// Reports how many calls a second were answered, atOnce() at the same time.
    void report(double callsASecond);

 private:
    const std::size_t most_;
    std::size_t proven_;     // so many were worth it
    double provenRate_ = 0;  // of the last report with `proven_` at once
    std::size_t atOnce_;
    std::size_t reportsUntilTrial_ = 1;
};

}  // namespace tarvin
