#include "platform/linux/user_environment.h"

#include "platform/file_paths.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <vector>

namespace tarvin {

namespace {

// Bytes; far more than any account needs.
constexpr std::size_t maxAccountBytes = std::size_t{1} << 20;

std::optional<std::string> variable(const char* name) {
    // Safe on any thread, because nothing in the program changes its environment.
    const char* const value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

void addAccount(UserEnvironment& environment) {
    std::vector<char> room(4096);
    passwd account{};
    passwd* found = nullptr;
    int failure = 0;
    do {
        failure = ::getpwuid_r(::getuid(), &account, room.data(), room.size(), &found);
        if (failure == ERANGE) {
            room.resize(room.size() * 2);
        }
    } while (failure == EINTR || (failure == ERANGE && room.size() <= maxAccountBytes));
    if (failure != 0 || found == nullptr) {
        return;
    }
    environment.accountName = found->pw_name;
    environment.accountHome = found->pw_dir;
}

UserEnvironment readEnvironment() {
    UserEnvironment environment;
    environment.logName = variable("LOGNAME");
    environment.home = variable("HOME");
    environment.xdgConfigHome = variable("XDG_CONFIG_HOME");
    environment.xdgDataHome = variable("XDG_DATA_HOME");
    environment.xdgRuntimeDir = variable("XDG_RUNTIME_DIR");
    addAccount(environment);
    return environment;
}

std::string withoutSlashesAtEnd(std::string path) {
    while (path.size() > 1 && path.back() == '/') {
        path.pop_back();
    }
    return path;
}

std::optional<std::string> absoluteFolder(const std::optional<std::string>& path) {
    if (!path || !path->starts_with('/')) {
        return std::nullopt;
    }
    return withoutSlashesAtEnd(*path);
}

std::optional<std::string> below(const std::optional<std::string>& folder, std::string_view name) {
    return folder ? std::optional(pathIn(*folder, name)) : std::nullopt;
}

/// An XDG base folder: that of the variable, else the default below the home folder.
std::optional<std::string> baseFolder(const UserEnvironment& environment,
                                      const std::optional<std::string>& fromVariable,
                                      std::string_view usualFolder) {
    auto folder = absoluteFolder(fromVariable);
    return folder ? folder : below(homeFolder(environment), usualFolder);
}

void skipBlanks(std::string_view& text) {
    while (text.starts_with(' ') || text.starts_with('\t')) {
        text.remove_prefix(1);
    }
}

bool skip(std::string_view& text, std::string_view expected) {
    if (!text.starts_with(expected)) {
        return false;
    }
    text.remove_prefix(expected.size());
    return true;
}

/// Removes `key="`, also with spaces or tabs in between. Returns false if there is something else.
bool skipAssignment(std::string_view& line, std::string_view key) {
    for (const std::string_view expected : {key, std::string_view("="), std::string_view("\"")}) {
        skipBlanks(line);
        if (!skip(line, expected)) {
            return false;
        }
    }
    return true;
}

/// The unescaped text up to the closing quote; nullopt if there is none.
std::optional<std::string> quotedText(std::string_view text) {
    std::string value;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '"') {
            return value;
        }
        if (text[at] == '\\' && at + 1 < text.size()) {
            ++at;
        }
        value += text[at];
    }
    return std::nullopt;
}

/// The folder written as $HOME and `rest`; nullopt if `rest` does not begin with a slash.
std::optional<std::string> folderInHome(const std::optional<std::string>& home,
                                        std::string_view rest) {
    if (!home || !(rest.empty() || rest.starts_with('/'))) {
        return std::nullopt;
    }
    const std::size_t name = std::min(rest.find_first_not_of('/'), rest.size());
    return withoutSlashesAtEnd(pathIn(*home, rest.substr(name)));
}

/// The value of a line such as `XDG_DESKTOP_DIR="$HOME/Desktop"` with this key. Other lines, and
/// paths that are neither absolute nor begin with $HOME, are ignored.
std::optional<std::string> folderSetBy(std::string_view line, std::string_view key,
                                       const std::optional<std::string>& home) {
    if (!skipAssignment(line, key)) {
        return std::nullopt;
    }
    const bool isInHome = skip(line, "$HOME");
    auto path = quotedText(line);
    // A path cannot contain a null byte.
    if (!path || path->find('\0') != std::string::npos) {
        return std::nullopt;
    }
    return isInHome ? folderInHome(home, *path) : absoluteFolder(path);
}

struct FolderNames {
    std::string_view key;          ///< in user-dirs.dirs
    std::string_view englishName;  ///< the default
};

FolderNames namesOf(UserFolder folder) {
    switch (folder) {
        case UserFolder::desktop:
            return {"XDG_DESKTOP_DIR", "Desktop"};
        case UserFolder::documents:
            return {"XDG_DOCUMENTS_DIR", "Documents"};
        case UserFolder::pictures:
            return {"XDG_PICTURES_DIR", "Pictures"};
        case UserFolder::home:
            break;
    }
    return {};
}

}  // namespace

const UserEnvironment& processEnvironment() {
    static const UserEnvironment environment = readEnvironment();
    return environment;
}

std::optional<std::string> userNameOf(const UserEnvironment& environment) {
    for (const auto* name : {&environment.accountName, &environment.logName}) {
        if (*name && !(*name)->empty()) {
            return *name;
        }
    }
    return std::nullopt;
}

std::optional<std::string> homeFolder(const UserEnvironment& environment) {
    auto home = absoluteFolder(environment.home);
    return home ? home : absoluteFolder(environment.accountHome);
}

std::optional<std::string> dataFolder(const UserEnvironment& environment) {
    return baseFolder(environment, environment.xdgDataHome, ".local/share");
}

std::optional<std::string> applicationSupportFolderOf(const UserEnvironment& environment) {
    return below(dataFolder(environment), "Tarvin Software/Tarvin Duplicate File Remover");
}

std::optional<std::string> homeTrashFolder(const UserEnvironment& environment) {
    return below(dataFolder(environment), "Trash");
}

std::optional<std::string> userDirectoriesFile(const UserEnvironment& environment) {
    return below(baseFolder(environment, environment.xdgConfigHome, ".config"), "user-dirs.dirs");
}

std::vector<std::string> meetingFolders(const UserEnvironment& environment) {
    constexpr std::string_view name = "tarvin-duplicate-file-remover";
    std::vector<std::string> folders;
    if (const auto inRuntimeDir = below(absoluteFolder(environment.xdgRuntimeDir), name)) {
        folders.push_back(*inRuntimeDir);
    }
    // Not $TMPDIR: two instances may have different ones.
    folders.push_back("/tmp/" + std::string(name) + '-' + std::to_string(::geteuid()));
    return folders;
}

std::optional<std::string> userFolderOf(UserFolder folder, const UserEnvironment& environment,
                                        std::string_view userDirectories) {
    auto home = homeFolder(environment);
    if (folder == UserFolder::home) {
        return home;
    }
    const FolderNames names = namesOf(folder);
    auto answer = below(home, names.englishName);
    while (!userDirectories.empty()) {
        const std::size_t end = userDirectories.find('\n');
        if (auto set = folderSetBy(userDirectories.substr(0, end), names.key, home)) {
            answer = std::move(set);  // the last line counts
        }
        userDirectories.remove_prefix(end == std::string_view::npos ? userDirectories.size()
                                                                    : end + 1);
    }
    return answer == home ? std::nullopt : answer;
}

}  // namespace tarvin
