#pragma once

#include "platform/platform.h"
#include "platform/posix/user_environment.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin::macos {

// The user's folders, by the names that macOS gives them on disk in every language. All are pure,
// and compiled on other systems, too, so that their tests run there.

/// One of the user's folders; nullopt without a home folder.
[[nodiscard]] std::optional<std::string> userFolderOf(UserFolder folder,
                                                      const UserEnvironment& environment);

/// The program's folder in ~/Library/Application Support.
[[nodiscard]] std::optional<std::string> applicationSupportFolderOf(
    const UserEnvironment& environment);

/// ~/.Trash, which need not exist.
[[nodiscard]] std::optional<std::string> homeTrashFolder(const UserEnvironment& environment);

/// The Trashes that a file at this path can have been moved to, the likeliest first: that of its
/// volume below "/Volumes", that of iCloud Drive, or the home Trash.
[[nodiscard]] std::vector<std::string> trashesFor(std::string_view path,
                                                  const UserEnvironment& environment,
                                                  std::uint32_t user);

/// Folders in which running instances may register, best first: one in the user's private folder
/// for temporary files (`confstr`, _CS_DARWIN_USER_TEMP_DIR; empty if unknown), then one of this
/// user in /tmp. They need not exist, and the caller must check their owner.
[[nodiscard]] std::vector<std::string> meetingFolders(const std::string& privateTemporary,
                                                      std::uint32_t user);

}  // namespace tarvin::macos
