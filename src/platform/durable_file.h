#pragma once

#include "platform/atomic_file.h"
#include "platform/result.h"
#include "platform/unique_fd.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tarvin {

// Files in tarvin's own folders. Paths are absolute, native bytes. Any thread.

/// Replaces the file at `path` atomically with `bytes`; the file need not exist. Replaces the
/// target of a symbolic link. Keeps the permissions of the old file. The temporary file is the
/// replaced path with ".new" appended: callers must hold a FolderLock. On failure the old file has
/// not changed.
[[nodiscard]] std::optional<SystemError> replaceFile(const std::string& path,
                                                     std::string_view bytes,
                                                     FileCalls& calls = systemFileCalls());

/// Creates an empty file that only the user can read and write, unless there is a regular file
/// already, which is not opened. Fails with ELOOP for a symbolic link, EISDIR for a folder and
/// EPERM for anything else.
[[nodiscard]] std::optional<SystemError> makePrivateFile(const std::string& path);

/// Renames the entry at `path` to `path` with `suffix` appended, and with "-2", "-3"... behind it
/// if the name is taken. Returns the new path. Never replaces anything.
Result<std::string> putAside(const std::string& path, std::string_view suffix);

/// Creates a folder and its missing parents; readable by the user alone.
[[nodiscard]] std::optional<SystemError> makeFolders(const std::string& path);

/// Excludes other processes and threads that take the lock of the same folder. RAII.
class FolderLock final {
 public:
    /// Blocks for at most `patience`, then fails with EBUSY. Creates the folder if it is missing.
    static Result<FolderLock> take(const std::string& folder,
                                   std::chrono::milliseconds patience = std::chrono::seconds(10));

 private:
    explicit FolderLock(UniqueFd folder) : folder_(std::move(folder)) {}

    UniqueFd folder_;
};

}  // namespace tarvin
