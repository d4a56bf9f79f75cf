#pragma once

#include "platform/file_system.h"
#include "platform/result.h"

#include <optional>
#include <string>

namespace tarvin {

/// An open folder with its identity and the path by which it was opened.
struct OpenFolder {
    Descriptor descriptor;
    FileIdentity identity;
    std::string path;  ///< absolute, native bytes
};

// These act on the open folder, even if its path leads to another one now. Any thread.

/// The current path of an open folder: absolute, without symbolic links, native bytes. Returns
/// nullopt if the folder was removed or lies outside the root of the process.
[[nodiscard]] std::optional<std::string> currentPathOf(const Descriptor& folder);

/// Why the user may not create or rename entries in an open folder; nullopt if that is allowed.
/// Does not check free space.
[[nodiscard]] std::optional<SystemError> refusalOfNames(const Descriptor& folder);

/// Creates a folder in an open one, with all permissions before the umask is applied.
[[nodiscard]] std::optional<SystemError> makeFolderAt(const Descriptor& parent,
                                                      const std::string& name);

/// Removes a folder if it is empty. Ignores failures: the folder is only left over.
void removeEmptyFolderAt(const Descriptor& parent, const std::string& name);

}  // namespace tarvin
