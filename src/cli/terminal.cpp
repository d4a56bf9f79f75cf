#include "cli/terminal.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace tarvin {

bool isDrawable(int descriptor) {
    // Any thread: nothing in the program changes its environment.
    const char* const kind = std::getenv("TERM");  // NOLINT(concurrency-mt-unsafe)
    const bool isDumb = kind != nullptr && std::string_view(kind) == "dumb";
    return !isDumb && ::isatty(descriptor) == 1;
}

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

}  // namespace tarvin
