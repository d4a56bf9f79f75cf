#pragma once

#include <QString>

namespace tarvin {

/// The path of an installed data file, such as "index.html"; empty if it is missing. Main thread
/// only.
[[nodiscard]] QString installedResource(const QString& name);

/// The path of one of our helper programs, such as "tarvin-image-preview": beside this program, as
/// in a build folder, or where helpers are installed. Empty if it is missing. `folder` is the
/// folder of this program, by default that of the running executable. Main thread only.
[[nodiscard]] QString helperProgram(const QString& name, QString folder = {});

/// The path of the updater, which a packager may add in the same places; empty if it is missing.
/// Main thread only.
[[nodiscard]] QString updaterProgram(const QString& folder = {});

}  // namespace tarvin
