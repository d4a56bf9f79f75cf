#pragma once

#include "platform/result.h"

#include <string>
#include <string_view>

namespace tarvin {

/// The absolute form of a path given by the user, which need not exist: relative to the current
/// folder, without "." components, doubled slashes and a trailing slash. Symbolic links are kept,
/// unless the path has a ".." component, whose meaning depends on them: then all are resolved
/// except the last component, which stays what it would be without the ".."; or, if that fails, the
/// path is returned unresolved, so that opening it fails. Native bytes. Fails for the empty path,
/// and for a relative one if the current folder was removed.
Result<std::string> absolutePath(const std::string& path);

// Of absolute paths without a slash at the end. Any thread.

/// The path of `name` in `folder`, or of the folder itself if `name` is empty.
[[nodiscard]] std::string pathIn(const std::string& folder, std::string_view name);

/// The path of the folder that an entry is in.
[[nodiscard]] std::string folderPathOf(const std::string& path);

/// Whether `path` is the folder or leads into it. Every path is within the empty folder.
[[nodiscard]] bool isWithin(std::string_view path, std::string_view folder);

}  // namespace tarvin
