#pragma once

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>

namespace tarvin {

/// A terminal without a screen: the program's end, and the end where a test sees what is drawn.
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

    /// Everything drawn until the last program's end is closed.
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
