#pragma once

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

/// Those of this system.
[[nodiscard]] const Conventions& conventions();

}  // namespace tarvin
