#pragma once

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>

namespace tarvin {

/// A pipe. The destructor closes both ends.
class Pipe final {
 public:
    Pipe() {
        if (::pipe2(ends_.data(), O_CLOEXEC) != 0) {
            std::abort();
        }
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        closeReading();
        closeWriting();
    }

    [[nodiscard]] int reading() const { return ends_[0]; }
    [[nodiscard]] int writing() const { return ends_[1]; }
    void closeReading() { close(ends_[0]); }
    void closeWriting() { close(ends_[1]); }

    [[nodiscard]] bool hasText() const {
        pollfd wanted{reading(), POLLIN, 0};
        return ::poll(&wanted, 1, 0) == 1;
    }

    /// Blocks until there is text. Empty if the writing end is closed.
    [[nodiscard]] std::string readSome() const {
        std::array<char, 65536> block{};
        const ssize_t got = ::read(reading(), block.data(), block.size());
        return {block.data(), got > 0 ? static_cast<std::size_t>(got) : 0};
    }

    /// Everything until the writing end is closed.
    [[nodiscard]] std::string readAll() const {
        std::string all;
        for (std::string some = readSome(); !some.empty(); some = readSome()) {
            all += some;
        }
        return all;
    }

    /// Blocks until `text` has been read. Returns everything up to it.
    [[nodiscard]] std::string readUntil(const std::string& text) const {
        std::string all;
        while (all.find(text) == std::string::npos) {
            const std::string some = readSome();
            if (some.empty()) {
                break;
            }
            all += some;
        }
        return all;
    }

 private:
    static void close(int& end) {
        if (end >= 0) {
            ::close(end);
            end = -1;
        }
    }

    std::array<int, 2> ends_{-1, -1};
};

}  // namespace tarvin
