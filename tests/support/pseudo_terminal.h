#pragma once

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

namespace tarvin {

/// A pseudoterminal: the program's end, and the end where the test reads the output.
class PseudoTerminal final {
 public:
    PseudoTerminal() : testsEnd_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        std::array<char, 64> name{};
        if (testsEnd_ < 0 || ::grantpt(testsEnd_) != 0 || ::unlockpt(testsEnd_) != 0 ||
            ::ptsname_r(testsEnd_, name.data(), name.size()) != 0) {
            std::abort();
        }
        programsEnd_ = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        setColumns(80);
    }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;
    ~PseudoTerminal() {
        closeProgramsEnd();
        ::close(testsEnd_);
    }

    [[nodiscard]] int programsEnd() const { return programsEnd_; }

    void setColumns(unsigned short columns) const {
        const winsize size{24, columns, 0, 0};
        ::ioctl(programsEnd_, TIOCSWINSZ, &size);
    }

    void closeProgramsEnd() {
        if (programsEnd_ >= 0) {
            ::close(programsEnd_);
            programsEnd_ = -1;
        }
    }

    /// Types `text`.
    void type(std::string_view text) const {
        while (!text.empty()) {
            const ssize_t typed = ::write(testsEnd_, text.data(), text.size());
            text.remove_prefix(typed > 0 ? static_cast<std::size_t>(typed) : text.size());
        }
    }

    /// Blocks until `text` has been written, the program's end is closed, or nothing has been
    /// written for a minute.
    void readUntil(std::string_view text) const {
        std::string all;
        std::array<char, 4096> block{};
        pollfd drawn{testsEnd_, POLLIN, 0};
        while (all.find(text) == std::string::npos && ::poll(&drawn, 1, 60'000) > 0) {
            const ssize_t got = ::read(testsEnd_, block.data(), block.size());
            if (got <= 0) {
                return;
            }
            all.append(block.data(), static_cast<std::size_t>(got));
        }
    }

    /// Everything written until the program's end is closed.
    [[nodiscard]] std::string readAll() const {
        std::string all;
        std::array<char, 4096> block{};
        for (ssize_t got = 0; (got = ::read(testsEnd_, block.data(), block.size())) > 0;) {
            all.append(block.data(), static_cast<std::size_t>(got));
        }
        return all;
    }

 private:
    int testsEnd_;
    int programsEnd_ = -1;
};

}  // namespace tarvin
