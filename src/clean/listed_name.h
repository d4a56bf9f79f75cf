#pragma once

#include "platform/file_system.h"

#include <string>
#include <string_view>

namespace tarvin {

/// Whether a folder, opened anew, lists this name. A name that was moved through another path may
/// still be remembered, and could be opened; a listing comes from the volume. Any thread.
[[nodiscard]] bool listsName(FileSystem& fileSystem, const std::string& folder,
                             std::string_view name);

}  // namespace tarvin
