#pragma once

#include "platform/result.h"
#include "store/property_list.h"
#include "store/store_error.h"

#include <optional>
#include <string>
#include <variant>

namespace tarvin {

// Reading and writing the program's property lists. Any thread.

/// The property list of up to 256 MiB at `path`, where a link is followed, or why there is none.
std::variant<PropertyList, StoreError> readStoredList(const std::string& path);

/// Writes the list as XML in the place of the file at `path`, which is kept whole until then. The
/// caller holds the FolderLock.
[[nodiscard]] std::optional<StoreError> writeStoredList(const std::string& path,
                                                        const PropertyList& list);

/// Gives a file that is there, but of no use, another name that says so, so that the next writing
/// does not cost what it holds. Answers that name: empty where `error` says that the file is
/// missing. Where it says that the file may be whole, nothing is done and the error is the answer.
std::variant<std::string, StoreError> moveAside(const StoreError& error);

/// What the system says of a file.
[[nodiscard]] StoreError storeErrorOf(const std::string& path, SystemError error);

}  // namespace tarvin
