#pragma once

namespace tarvin {

/// A shared library loaded on first use (`dlopen`): most files need none, and it may not be
/// installed. Never unloaded. Any thread.
class LateLibrary final {
 public:
    /// `name` is that of the file without its extension, as in "libheif".
    LateLibrary(const char* name, int abiVersion);

    /// Sets `function`; false if the library or the function does not exist.
    template <typename Function>
    [[nodiscard]] bool find(const char* name, Function*& function) const {
        function = reinterpret_cast<Function*>(addressOf(name));
        return function != nullptr;
    }

 private:
    [[nodiscard]] void* addressOf(const char* name) const;

    void* const handle_;
};

}  // namespace tarvin
