#pragma once

#include "platform/platform.h"
#include "platform/posix/user_environment.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// The data folder: $XDG_DATA_HOME, else ~/.local/share.
[[nodiscard]] std::optional<std::string> dataFolder(const UserEnvironment& environment);

/// The program's folder in the data folder.
[[nodiscard]] std::optional<std::string> applicationSupportFolderOf(
    const UserEnvironment& environment);

/// The home Trash, which need not exist.
[[nodiscard]] std::optional<std::string> homeTrashFolder(const UserEnvironment& environment);

/// The desktop's list of the user's folders, user-dirs.dirs in $XDG_CONFIG_HOME, else ~/.config.
[[nodiscard]] std::optional<std::string> userDirectoriesFile(const UserEnvironment& environment);

/// Folders in which running instances may register, best first: one in $XDG_RUNTIME_DIR, then one
/// of this user in /tmp. They need not exist, and the caller must check their owner.
[[nodiscard]] std::vector<std::string> meetingFolders(const UserEnvironment& environment);

/// One of the user's folders, given the text of user-dirs.dirs (empty if there is none). A folder
/// that the file does not set has its English name in the home folder; one set to the home folder
/// itself is disabled: nullopt.
[[nodiscard]] std::optional<std::string> userFolderOf(UserFolder folder,
                                                      const UserEnvironment& environment,
                                                      std::string_view userDirectories);

}  // namespace tarvin
