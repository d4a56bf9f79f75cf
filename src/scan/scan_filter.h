#pragma once

#include "model/file.h"
#include "platform/file_system.h"
#include "scan/exclude_pattern.h"

#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

namespace tarvin {

/// What a scan skips besides the files and folders that every scan skips. A filter as constructed
/// skips nothing. Any thread, while none changes it.
struct ScanFilter {
    std::vector<ExcludePattern> excluded;
    std::uint64_t minSize = 0;  ///< bytes
    std::uint64_t maxSize = std::numeric_limits<std::uint64_t>::max();
    /// Files and folders whose name begins with a period.
    bool skipHidden = false;
    /// Folders on another file system than the location that contains them.
    bool oneFileSystem = false;

    /// Whether an entry found in `folder` is skipped because of its name.
    [[nodiscard]] bool skips(const Directory& folder, std::string_view name, EntryType type) const {
        return (skipHidden && name.starts_with('.')) || excludes(folder, name, type);
    }

    /// Whether a pattern excludes the entry.
    [[nodiscard]] bool excludes(const Directory& folder, std::string_view name,
                                EntryType type) const;

    /// Whether files of this size are scanned.
    [[nodiscard]] bool takesSize(std::uint64_t size) const {
        return size >= minSize && size <= maxSize;
    }
};

}  // namespace tarvin
