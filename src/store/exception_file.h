#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// Why a stored file could not be used.
struct StoreError {
    std::string path;
    std::string text;      ///< what is wrong with it, for a person
    bool missing = false;  ///< there is no such file
};

/// The list of files that no scan takes: absolute paths in the order in which they were added.
struct ExceptionList {
    std::vector<std::string> paths;
    std::optional<StoreError> error;  ///< `paths` is empty then
};

/// Reads an exception file of up to 256 MiB: a property list, XML or binary, whose root is an array
/// of strings. What else the array holds is passed over. Nothing is written. Any thread.
ExceptionList readExceptionFile(const std::string& path);

}  // namespace tarvin
