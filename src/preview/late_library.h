#pragma once

namespace tarvin {

/// A library that is loaded while the program runs: most files need none of them, and some systems
/// have none. Stays loaded. Any thread.
class LateLibrary final {
 public:
    /// `name` is that of its file, with the version of its interface.
    explicit LateLibrary(const char* name);

    /// Fills in `function`; false if the library or the function is not there.
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
