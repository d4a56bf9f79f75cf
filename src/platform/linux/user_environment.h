#pragma once

#include "platform/platform.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// What the system says of the user of a process. A value that is empty counts as missing, and a
/// folder that is not absolute, too. Text is native bytes.
struct UserEnvironment {
    std::optional<std::string> accountName;    ///< the password database's name of the user
    std::optional<std::string> accountHome;    ///< its home folder
    std::optional<std::string> logName;        ///< $LOGNAME
    std::optional<std::string> home;           ///< $HOME
    std::optional<std::string> xdgConfigHome;  ///< $XDG_CONFIG_HOME
    std::optional<std::string> xdgDataHome;    ///< $XDG_DATA_HOME
    std::optional<std::string> xdgRuntimeDir;  ///< $XDG_RUNTIME_DIR
};

/// That of this process, asked for on the first call. Any thread.
[[nodiscard]] const UserEnvironment& processEnvironment();

/// The user's short name: the account's, which no variable can forge, else $LOGNAME.
[[nodiscard]] std::optional<std::string> userNameOf(const UserEnvironment& environment);

/// $HOME, else the account's home folder. Without a slash at its end, like every folder here.
[[nodiscard]] std::optional<std::string> homeFolder(const UserEnvironment& environment);

/// The folder that holds settings: $XDG_CONFIG_HOME, else ".config" of the home folder.
[[nodiscard]] std::optional<std::string> configFolder(const UserEnvironment& environment);

/// The folder that holds programs' data: $XDG_DATA_HOME, else ".local/share" of the home folder.
[[nodiscard]] std::optional<std::string> dataFolder(const UserEnvironment& environment);

/// The program's own folder in the data folder.
[[nodiscard]] std::optional<std::string> applicationSupportFolderOf(
    const UserEnvironment& environment);

/// The Trash of the home folder, whether or not it is there.
[[nodiscard]] std::optional<std::string> homeTrashFolder(const UserEnvironment& environment);

/// The file in which the desktop keeps where the user's folders are.
[[nodiscard]] std::optional<std::string> userDirectoriesFile(const UserEnvironment& environment);

/// Where running copies of the program may meet, best first: a folder in $XDG_RUNTIME_DIR, then one
/// of this user's in the folder for temporary files. They need not be there, and whose they are has
/// to be looked at.
[[nodiscard]] std::vector<std::string> meetingFolders(const UserEnvironment& environment);

/// One of the user's folders, given the text of that file (empty if there is none). A folder the
/// file does not set is the one of its English name in the home folder; one set to the home folder
/// itself is switched off, so there is none.
[[nodiscard]] std::optional<std::string> userFolderOf(UserFolder folder,
                                                      const UserEnvironment& environment,
                                                      std::string_view userDirectories);

}  // namespace tarvin
