#pragma once

#include "platform/result.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvin {

/// Text on its way to an open file, pipe or terminal, collected into large portions. The first
/// failure is kept and ends the writing: what is appended later is dropped, so that callers need to
/// ask only once, at the end. Made and used on one thread.
class Output final {
 public:
    /// The descriptor stays its owner's, who must ignore SIGPIPE.
    explicit Output(int descriptor);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void append(std::string_view text);
    void appendNumber(std::uint64_t number);

    /// Hands on everything appended so far; what is not flushed at the end is lost. False if that
    /// or an earlier portion failed.
    bool flush();
    [[nodiscard]] int descriptor() const { return descriptor_; }
    [[nodiscard]] const std::optional<SystemError>& error() const { return error_; }

 private:
    static constexpr std::size_t portion = std::size_t{256} * 1024;

    int descriptor_;
    std::string buffer_;
    std::optional<SystemError> error_;
};

}  // namespace tarvin
