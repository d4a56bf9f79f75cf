#pragma once

#include "platform/result.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>

namespace tarvin {

/// The bytes of an open JSON file or pipe, one by one, for a parser. A string or word of more than
/// `maxTokenBytes` ends the input, so that the parser's memory is bounded, and so does more than a
/// given number of bytes. One thread.
class ByteSource final {
 public:
    static constexpr std::size_t maxTokenBytes = std::size_t{1} << 20U;

    /// Does not take ownership of the descriptor.
    explicit ByteSource(int descriptor,
                        std::uint64_t maxBytes = std::numeric_limits<std::uint64_t>::max());
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    /// Whether there is no further byte.
    [[nodiscard]] bool isAtEnd() const { return isAtEnd_; }
    /// The current byte; not at the end.
    [[nodiscard]] char current() const { return buffer_[position_]; }
    /// Goes to the next byte; not at the end.
    void next();

    /// The number of bytes before the current one.
    [[nodiscard]] std::uint64_t offset() const { return passed_ + position_; }
    /// Whether there are more than maxBytes() bytes.
    [[nodiscard]] bool isTooLong() const { return isTooLong_; }
    [[nodiscard]] std::uint64_t maxBytes() const { return maxBytes_; }
    [[nodiscard]] bool isTokenTooLong() const { return isTokenTooLong_; }
    [[nodiscard]] const std::optional<SystemError>& error() const { return error_; }

    /// An input iterator. One without a source is the end.
    class Iterator final {
     public:
        using iterator_category = std::input_iterator_tag;
        using value_type = char;
        using difference_type = std::ptrdiff_t;
        // NOLINTBEGIN(readability-identifier-naming): names of the standard library.
        using pointer = const char*;
        using reference = char;
        // NOLINTEND(readability-identifier-naming)

        Iterator() = default;
        explicit Iterator(ByteSource& source) : source_(&source) {}

        char operator*() const { return source_->current(); }
        Iterator& operator++() {
            source_->next();
            return *this;
        }
        Iterator operator++(int) {
            const Iterator before = *this;
            source_->next();
            return before;
        }
        bool operator==(const Iterator& other) const { return isEnd() == other.isEnd(); }

     private:
        [[nodiscard]] bool isEnd() const { return source_ == nullptr || source_->isAtEnd(); }

        ByteSource* source_ = nullptr;
    };

 private:
    void fill();
    void countToken(char byte);

    const int descriptor_;
    const std::uint64_t maxBytes_;
    std::array<char, 65'536> buffer_{};
    std::size_t position_ = 0;
    std::size_t filled_ = 0;
    std::uint64_t passed_ = 0;  // bytes of earlier buffers
    std::size_t tokenBytes_ = 0;
    bool isInString_ = false;
    bool isEscaped_ = false;
    bool isAtEnd_ = false;
    bool isTooLong_ = false;
    bool isTokenTooLong_ = false;
    std::optional<SystemError> error_;
};

}  // namespace tarvin
