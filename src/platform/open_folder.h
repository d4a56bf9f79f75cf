#pragma once

#include "platform/file_system.h"
#include "platform/result.h"

#include <optional>
#include <string>

namespace tarvin {

/// A folder that is open, what it is, and where it was when it was opened.
struct OpenFolder {
    Descriptor descriptor;
    FileIdentity identity;
    std::string path;  ///< absolute, native bytes
};

// Of folders that are open, whatever stands at their path meanwhile. Any thread.

/// Where an open folder is now, by the system's own account: an absolute path without links, native
/// bytes. None where that is no place: the folder was removed, or lies outside of what the process
/// sees.
[[nodiscard]] std::optional<std::string> placeOf(const Descriptor& folder);

/// Why the user may not make or rename anything in an open folder; none if that is allowed. What a
/// volume has room for is not asked.
[[nodiscard]] std::optional<SystemError> refusalOfNames(const Descriptor& folder);

/// Makes an empty folder in an open one, with the rights that the user's programs give to new ones.
[[nodiscard]] std::optional<SystemError> makeFolderAt(const Descriptor& parent,
                                                      const std::string& name);

/// Takes a folder away if it is empty. Says nothing if it is not, or cannot be.
void removeEmptyFolderAt(const Descriptor& parent, const std::string& name);

}  // namespace tarvin
