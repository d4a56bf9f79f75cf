#include "report/output.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <utility>

namespace tarvin {

namespace {

/// Another process that shares the pipe or terminal may have set O_NONBLOCK. False on an error.
bool waitUntilWritable(int descriptor) {
    pollfd wanted{descriptor, POLLOUT, 0};
    return ::poll(&wanted, 1, -1) >= 0 || errno == EINTR;
}

std::optional<SystemError> writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
            continue;
        }
        const int code = errno;
        const bool mayTryAgain = code == EINTR || (code == EAGAIN && waitUntilWritable(descriptor));
        if (!mayTryAgain) {
            return SystemError{code};
        }
    }
    return std::nullopt;
}

}  // namespace

Output::Output(int descriptor)
    : descriptor_(descriptor),
      write_([descriptor](std::string_view text) { return writeAll(descriptor, text); }) {}

Output::Output(std::function<std::optional<SystemError>(std::string_view text)> write)
    : descriptor_(-1), write_(std::move(write)) {}

void Output::append(std::string_view text) {
    if (error_) {
        return;
    }
    buffer_ += text;
    if (buffer_.size() >= maxBuffered) {
        flush();
    }
}

void Output::appendNumber(std::uint64_t number) {
    std::array<char, 20> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    append({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

bool Output::flush() {
    if (!error_) {
        error_ = write_(buffer_);
    }
    buffer_.clear();
    return !error_;
}

}  // namespace tarvin
