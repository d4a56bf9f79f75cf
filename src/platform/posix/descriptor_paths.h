#pragma once

#include <optional>
#include <string>

namespace tarvin {

/// A path to an open folder that was opened by `path`. Where the system has such paths, it leads to
/// the open one even if `path` leads to another now, and is short; else it is `path`. Any thread.
[[nodiscard]] std::string pathThrough(int folder, const std::string& path);

/// The current path of an open folder, as currentPathOf() of open_folder.h returns it. Any thread.
[[nodiscard]] std::optional<std::string> pathOfDescriptor(int folder);

}  // namespace tarvin
