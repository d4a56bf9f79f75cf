#pragma once

#include <utility>

namespace tarvin {

/// Owns one file descriptor of the process; closed on destruction. Moved-from and default objects
/// are empty. One thread at a time.
///
/// A Descriptor instead owns a file opened by a FileSystem, and closes it through that.
class UniqueFd final {
 public:
    UniqueFd() = default;
    /// Takes ownership; empty if `number` is negative.
    explicit UniqueFd(int number) : number_(number) {}
    UniqueFd(UniqueFd&& other) noexcept : number_(other.release()) {}
    UniqueFd& operator=(UniqueFd&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    UniqueFd(const UniqueFd&) = delete;
    UniqueFd& operator=(const UniqueFd&) = delete;
    /// Preserves errno.
    ~UniqueFd();

    explicit operator bool() const { return number_ >= 0; }
    /// Negative if empty.
    [[nodiscard]] int number() const { return number_; }
    /// Gives the descriptor to the caller.
    [[nodiscard]] int release() { return std::exchange(number_, -1); }
    /// Closes the descriptor and returns 0 or the error number: a network volume may report a
    /// failed write only here. Returns 0 if empty. The object is empty afterwards.
    int close();

 private:
    int number_ = -1;
};

}  // namespace tarvin
