#pragma once

#include "platform/platform.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// The account and environment variables of the user of a process. An empty value counts as
/// missing, as does a folder that is not absolute. Text is native bytes.
struct UserEnvironment {
    std::optional<std::string> accountName;    ///< the password database's name of the user
    std::optional<std::string> accountHome;    ///< its home folder
    std::optional<std::string> logName;        ///< $LOGNAME
    std::optional<std::string> home;           ///< $HOME
    std::optional<std::string> xdgConfigHome;  ///< $XDG_CONFIG_HOME
    std::optional<std::string> xdgDataHome;    ///< $XDG_DATA_HOME
    std::optional<std::string> xdgRuntimeDir;  ///< $XDG_RUNTIME_DIR
};

/// That of this process, read on the first call. Any thread.
[[nodiscard]] const UserEnvironment& processEnvironment();

/// The login name: the account's, which no variable can override, else $LOGNAME.
[[nodiscard]] std::optional<std::string> userNameOf(const UserEnvironment& environment);

/// $HOME, else the account's home folder. Without a trailing slash, like every folder here.
[[nodiscard]] std::optional<std::string> homeFolder(const UserEnvironment& environment);

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
