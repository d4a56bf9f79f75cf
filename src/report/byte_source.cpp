#include "report/byte_source.h"

#include <unistd.h>

#include <cerrno>
#include <string_view>

namespace tarvin {

ByteSource::ByteSource(int descriptor, std::uint64_t maxBytes)
    : descriptor_(descriptor), maxBytes_(maxBytes) {
    fill();
}

void ByteSource::next() {
    countToken(buffer_[position_]);
    ++position_;
    if (isTokenTooLong_) {
        isAtEnd_ = true;
    } else if (position_ == filled_) {
        fill();
    }
}

void ByteSource::fill() {
    passed_ += filled_;
    position_ = 0;
    filled_ = 0;
    ssize_t got = 0;
    do {
        got = ::read(descriptor_, buffer_.data(), buffer_.size());
    } while (got < 0 && errno == EINTR);
    if (got < 0) {
        error_ = SystemError{errno};
    }
    isTooLong_ = got > 0 && static_cast<std::uint64_t>(got) > maxBytes_ - passed_;
    isAtEnd_ = got <= 0 || isTooLong_;
    filled_ = isAtEnd_ ? 0 : static_cast<std::size_t>(got);
}

void ByteSource::countToken(char byte) {
    constexpr std::string_view separators = "{}[],: \t\r\n";
    if (isInString_) {
        isInString_ = isEscaped_ || byte != '"';
        isEscaped_ = !isEscaped_ && byte == '\\';
        tokenBytes_ += isInString_ ? 1U : 0U;
    } else if (byte == '"') {
        isInString_ = true;
        tokenBytes_ = 0;
    } else if (separators.find(byte) != std::string_view::npos) {
        tokenBytes_ = 0;
    } else {
        ++tokenBytes_;
    }
    isTokenTooLong_ = tokenBytes_ > maxTokenBytes;
}

}  // namespace tarvin
