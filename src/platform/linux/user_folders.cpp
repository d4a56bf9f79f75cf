#include "platform/linux/user_folders.h"

#include "platform/file_paths.h"

#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tarvin {

namespace {

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
    return absoluteFolder(pathIn(*home, rest.substr(name)));
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
