#pragma once

#include "model/file.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/timestamp.h"

#include <optional>
#include <string>

namespace tarvin {

// Utilities on single files, apart from the scan, which proves equality in its own way. Nothing in
// the program calls them. Any thread. Only regular files are read and a symbolic link is not
// followed; what cannot be opened or read is equal to nothing and has no digest.

/// Whether both files can be read and hold the same bytes from first to last, as they are now.
[[nodiscard]] bool contentsEqualAtPath(FileSystem& fileSystem, const std::string& path,
                                       const std::string& otherPath);

/// A quick look at two files: whether their first 3 MiB are equal and the last 3 MiB of the one at
/// `path` equal what stands at the same place in the other. The middle is not compared, nor what
/// the other file may have beyond that place. Files that `file` records as smaller than 3 MiB are
/// compared in full.
[[nodiscard]] bool dataEqualsAtPath(FileSystem& fileSystem, const std::string& path,
                                    const std::string& otherPath, const File& file);

/// The MD5 digest of the whole file as 32 hexadecimal digits in lower case.
[[nodiscard]] std::optional<std::string> md5OfFile(FileSystem& fileSystem, const std::string& path);

/// The date itself, or the date and time now if there is none.
[[nodiscard]] Timestamp checkNilDate(std::optional<Timestamp> date, Clock& clock);

}  // namespace tarvin
