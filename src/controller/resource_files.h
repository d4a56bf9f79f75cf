#pragma once

#include <QString>

namespace tarvin {

/// The path of a file that is installed with the program, such as "index.html"; empty if it is
/// missing. Main thread.
[[nodiscard]] QString installedResource(const QString& name);

/// The path of a program that this one starts for its own purposes, such as "tarvin-image-preview":
/// beside this one, as it is where nothing is installed, or where such programs are installed.
/// Empty if it is missing. `folder` is where this program is; empty means that the system is asked.
/// Main thread.
[[nodiscard]] QString helperProgram(const QString& name, QString folder = {});

/// The path of the program that fetches updates and that a packager may add, in the same places;
/// empty if it is missing. Main thread.
[[nodiscard]] QString updaterProgram(const QString& folder = {});

}  // namespace tarvin
