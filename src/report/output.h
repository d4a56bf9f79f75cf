#pragma once

#include "platform/result.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarvin {

/// A buffered writer to an open file, pipe or terminal, or to a function. It keeps the first error
/// and drops everything appended later, so callers need to check only once, at the end. One thread
/// at a time.
class Output final {
 public:
    /// Does not take ownership of the descriptor. The process must ignore SIGPIPE.
    explicit Output(int descriptor);
    /// `write` takes the text in parts, in order, and returns the failure, after which it is not
    /// called again.
    explicit Output(std::function<std::optional<SystemError>(std::string_view text)> write);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void append(std::string_view text);
    void appendNumber(std::uint64_t number);

    /// Writes the buffer; the destructor does not. Returns false after this or an earlier error.
    bool flush();
    /// -1 if a function takes the text.
    [[nodiscard]] int descriptor() const { return descriptor_; }
    [[nodiscard]] const std::optional<SystemError>& error() const { return error_; }

 private:
    static constexpr std::size_t maxBuffered = std::size_t{256} * 1024;  // bytes

    int descriptor_;
    std::function<std::optional<SystemError>(std::string_view text)> write_;
    std::string buffer_;
    std::optional<SystemError> error_;
};

}  // namespace tarvin
