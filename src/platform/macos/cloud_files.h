#pragma once

#include <string_view>

namespace tarvin::macos {

/// Whether a file of this name stands for one that is only in iCloud Drive, as before macOS 14:
/// ".NAME.icloud", a property list with name, size and type. Those of two different files can be
/// equal, and removing one removes the file from the cloud. Pure; compiled on other systems, too,
/// so that its tests run there.
[[nodiscard]] bool isCloudPlaceholder(std::string_view name);

}  // namespace tarvin::macos
