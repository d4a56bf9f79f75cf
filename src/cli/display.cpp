#include "cli/display.h"

#include <unistd.h>

namespace tarvin {

Display displayOf(int descriptor) {
    return {.isTerminal = ::isatty(descriptor) == 1};
}

}  // namespace tarvin
