#pragma once

#include "platform/result.h"
#include "store/property_list.h"
#include "store/store_error.h"

#include <optional>
#include <string>
#include <variant>

namespace tarvin {

// Reading and writing the program's property lists. Any thread.

/// Reads a property list of up to 256 MiB. Follows symbolic links.
std::variant<PropertyList, StoreError> readStoredList(const std::string& path);

/// Replaces the file at `path` atomically with the list as XML. Requires the FolderLock.
[[nodiscard]] std::optional<StoreError> writeStoredList(const std::string& path,
                                                        const PropertyList& list);

/// Renames an unusable file to NAME.unreadable, so that its content is not lost when the file is
/// written next. Returns the new path, or an empty one if `error` says that the file is missing. If
/// `error` is transient, does nothing and returns it.
std::variant<std::string, StoreError> moveAside(const StoreError& error);

/// The StoreError of a failed system call on a file.
[[nodiscard]] StoreError storeErrorOf(const std::string& path, SystemError error);

}  // namespace tarvin
