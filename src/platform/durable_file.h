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

// Writing the few files of our own so that a crash at any instant leaves the old one or the new
// one, whole. Paths are absolute, native bytes. Any thread.

/// Puts `bytes` in the place of the file at `path`, which need not exist; where a link stands, its
/// target is replaced. Written beside it under the name with ".new" behind, which must be nobody
/// else's: callers hold a FolderLock. On failure the old file is as it was.
[[nodiscard]] std::optional<SystemError> replaceFile(const std::string& path,
                                                     std::string_view bytes,
                                                     FileCalls& calls = systemFileCalls());

/// Makes an empty file that only the user can read and write, unless there is a regular file
/// already. Fails with ELOOP where a link stands, with EISDIR where a folder does, with EPERM for
/// anything else. A file that is there is not opened.
[[nodiscard]] std::optional<SystemError> makePrivateFile(const std::string& path);

/// Gives what stands at `path` the name with `suffix` behind, or with "-2", "-3"... behind that
/// where the name is taken. Answers the new path. Never replaces anything.
Result<std::string> putAside(const std::string& path, std::string_view suffix);

/// Makes a folder and those above it that are missing; readable by the user alone.
[[nodiscard]] std::optional<SystemError> makeFolders(const std::string& path);

/// Keeps other processes, and other threads, from writing in a folder of ours at the same time.
class FolderLock final {
 public:
    /// Waits so long for whoever holds it. A folder that is missing is made.
    static Result<FolderLock> take(const std::string& folder,
                                   std::chrono::milliseconds patience = std::chrono::seconds(10));

 private:
    explicit FolderLock(UniqueFd folder) : folder_(std::move(folder)) {}

    UniqueFd folder_;
};

}  // namespace tarvin
