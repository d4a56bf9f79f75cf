#pragma once

#include "platform/file_system.h"

#include <functional>
#include <string>

namespace tarvin {

/// A file and its metadata at one moment.
struct SeenFile {
    std::string path;  ///< absolute, native bytes
    FileAttributes attributes;
    bool isUnsteady = false;  ///< on an unsteady volume: only type, size and links are known
};

/// Whether two files have the same size and bytes and, before and after the comparison, their given
/// metadata, as far as that is known. Returns false also if one cannot be read, or if `stopped`,
/// which is polled for each chunk and may be empty, returns true. Any thread.
[[nodiscard]] bool haveEqualContents(FileSystem& fileSystem, const SeenFile& one,
                                     const SeenFile& other, const std::function<bool()>& stopped);

/// Whether both are metadata of the same file with unchanged content: type, identity, size and
/// modification date. Its names and permissions may differ.
[[nodiscard]] bool isSameFile(const FileAttributes& before, const FileAttributes& now);

}  // namespace tarvin
