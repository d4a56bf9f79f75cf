#include "platform/posix/user_environment.h"

#include "platform/file_paths.h"

#include <pwd.h>
#include <unistd.h>

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

std::optional<std::string> absoluteFolder(const std::optional<std::string>& path) {
    if (!path || !path->starts_with('/')) {
        return std::nullopt;
    }
    std::string folder = *path;
    while (folder.size() > 1 && folder.back() == '/') {
        folder.pop_back();
    }
    return folder;
}

std::optional<std::string> below(const std::optional<std::string>& folder, std::string_view name) {
    return folder ? std::optional(pathIn(*folder, name)) : std::nullopt;
}

}  // namespace tarvin
