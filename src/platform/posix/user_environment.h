#pragma once

#include <optional>
#include <string>
#include <string_view>

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

/// The folder without the slashes at its end; nullopt if it is missing or not absolute.
[[nodiscard]] std::optional<std::string> absoluteFolder(const std::optional<std::string>& path);

/// The folder `name` in another, if there is that one; `name` may be a relative path.
[[nodiscard]] std::optional<std::string> below(const std::optional<std::string>& folder,
                                               std::string_view name);

}  // namespace tarvin
