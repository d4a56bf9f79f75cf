#pragma once

#include <string>
#include <string_view>

namespace tarvin {

/// How a program with a window is installed and used on a system. Constant; the texts are ASCII.
struct Conventions {
    /// The folder of the installed files, relative to that of the programs, with a slash at its
    /// end.
    const char* resources;
    /// The path of another program relative to the folder that it is installed in; "*" stands for
    /// its name.
    const char* program;
    /// A program and its option that show the file with a path in the file manager; null pointers
    /// where a message to the file manager does.
    const char* fileShower;
    const char* fileShowerOption;
    /// Whether a window can be opened without a variable such as DISPLAY.
    bool alwaysHasDisplay;
};

/// What `dlopen` loads a shared library by: the name of its file for a version of its ABI, such as
/// "libheif.so.1" for "libheif" and 1; on macOS its path in the folder of Homebrew. Pure.
[[nodiscard]] std::string libraryFile(std::string_view name, int abiVersion);

/// Those of this system.
[[nodiscard]] const Conventions& conventions();

}  // namespace tarvin
