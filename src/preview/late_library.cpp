#include "preview/late_library.h"

#include <dlfcn.h>

namespace tarvin {

LateLibrary::LateLibrary(const char* name)
    : handle_(::dlopen(name, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE)) {}

void* LateLibrary::addressOf(const char* name) const {
    return handle_ == nullptr ? nullptr : ::dlsym(handle_, name);
}

}  // namespace tarvin
