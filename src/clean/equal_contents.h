#pragma once

#include "platform/file_system.h"

#include <functional>
#include <string>

namespace tarvin {

/// A file as it was looked at.
struct SeenFile {
    std::string path;  ///< absolute, native bytes
    FileAttributes attributes;
};

/// Whether two files of one size hold the same bytes and are, before and after, what was seen of
/// them. False also where one cannot be read, or `stopped` (which may be empty) says so. Any
/// thread.
[[nodiscard]] bool haveEqualContents(FileSystem& fileSystem, const SeenFile& one,
                                     const SeenFile& other, const std::function<bool()>& stopped);

/// Whether a file that was looked at twice is the same and has not been written to meanwhile. Its
/// names may have changed.
[[nodiscard]] bool isSameFile(const FileAttributes& before, const FileAttributes& now);

}  // namespace tarvin
