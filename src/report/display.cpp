#include "report/display.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>

namespace tarvin {

namespace {

std::atomic<ColorWhen> colorWhen{ColorWhen::automatic};

/// Whether the variable is set and not empty. Any thread: nothing in the program changes its
/// environment.
bool isSet(const char* name) {
    const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe)
    return value != nullptr && *value != '\0';
}

bool isColored(int descriptor) {
    switch (colorWhen.load()) {
        case ColorWhen::always:
            return true;
        case ColorWhen::never:
            return false;
        case ColorWhen::automatic:
            break;
    }
    return !isSet("NO_COLOR") && isSet("TERM") && isDrawable(descriptor);
}

}  // namespace

void useColor(ColorWhen when) {
    colorWhen = when;
}

Display displayOf(int descriptor) {
    return {.isTerminal = ::isatty(descriptor) == 1, .isColored = isColored(descriptor)};
}

bool isDrawable(int descriptor) {
    // Any thread: nothing in the program changes its environment.
    const char* const kind = std::getenv("TERM");  // NOLINT(concurrency-mt-unsafe)
    const bool isDumb = kind != nullptr && std::string_view(kind) == "dumb";
    return !isDumb && ::isatty(descriptor) == 1;
}

}  // namespace tarvin
