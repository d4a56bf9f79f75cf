#include "cli/terminal.h"

#include "report/output.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace tarvin {

namespace {

/// Reads up to the end of the line and truncates long lines.
std::string readLine() {
    constexpr std::size_t maxLength = 256;  // bytes
    std::string line;
    char character = 0;
    while (true) {
        const ssize_t got = ::read(STDIN_FILENO, &character, 1);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0 || character == '\n') {
            return line;
        }
        if (line.size() < maxLength) {
            line += character;
        }
    }
}

}  // namespace

std::size_t columnsOf(int descriptor) {
    constexpr std::size_t usual = 80;
    winsize size{};
    const bool known = ::ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : usual;
}

void reserveStandardStreams() {
    int descriptor = 0;
    do {
        // open() takes the lowest free number. Read-only, so that writing fails.
        descriptor = ::open("/dev/null", O_RDONLY);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0) {
        ::close(descriptor);
    }
}

bool isInteractive() {
    return ::isatty(STDIN_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1;
}

bool confirm(std::string_view question) {
    Output output(STDERR_FILENO);
    output.append(question);
    if (!output.flush()) {
        return false;
    }
    const std::string answer = readLine();
    return answer == "y" || answer == "Y" || answer == "yes" || answer == "Yes" || answer == "YES";
}

}  // namespace tarvin
