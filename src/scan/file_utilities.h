#pragma once

#include "model/file.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/timestamp.h"

#include <optional>
#include <string>

namespace tarvin {

// Utilities on single files. Nothing in the program calls them; the scan compares in another way.
// Any thread. Only regular files are read, and symbolic links are not followed. A file that cannot
// be opened or read equals no file and has no digest.

/// Whether both files can be read and currently hold the same bytes.
[[nodiscard]] bool contentsEqualAtPath(FileSystem& fileSystem, const std::string& path,
                                       const std::string& otherPath);

/// A quick comparison: whether the first 3 MiB of both files are equal and the last 3 MiB of the
/// file at `path` equal the bytes at the same offset in the other. Neither the middle is compared,
/// nor later bytes of the other file. Files that `file` records as smaller than 3 MiB are
/// compared in full.
[[nodiscard]] bool dataEqualsAtPath(FileSystem& fileSystem, const std::string& path,
                                    const std::string& otherPath, const File& file);

/// The MD5 digest of the whole file as 32 hexadecimal digits in lower case.
[[nodiscard]] std::optional<std::string> md5OfFile(FileSystem& fileSystem, const std::string& path);

/// Returns the date, or the current time if it is nullopt.
[[nodiscard]] Timestamp checkNilDate(std::optional<Timestamp> date, Clock& clock);

}  // namespace tarvin
