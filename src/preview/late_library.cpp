#include "preview/late_library.h"

#include "platform/conventions.h"

#include <dlfcn.h>

namespace tarvin {

LateLibrary::LateLibrary(const char* name, int abiVersion)
    : handle_(
          ::dlopen(libraryFile(name, abiVersion).c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE)) {}

void* LateLibrary::addressOf(const char* name) const {
    return handle_ == nullptr ? nullptr : ::dlsym(handle_, name);
}

}  // namespace tarvin
