#include "platform/macos/load_symbol.h"

#include <dlfcn.h>

namespace tarvin::macos {

void* symbolOf(void* library, const char* name) {
    return ::dlsym(library, name);
}

}  // namespace tarvin::macos
