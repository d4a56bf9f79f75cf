#pragma once

namespace tarvin::macos {

/// The address of a symbol of a library that `dlopen` has opened; nullptr if it has none. Any
/// thread.
[[nodiscard]] void* symbolOf(void* library, const char* name);

/// Sets `function` to a symbol. False if the library has none of that name.
template <typename Function>
[[nodiscard]] bool loadSymbol(void* library, const char* name, Function& function) {
    // POSIX guarantees that a pointer to a function fits.
    function = reinterpret_cast<Function>(symbolOf(library, name));
    return function != nullptr;
}

}  // namespace tarvin::macos
