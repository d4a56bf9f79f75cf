#include "private_home.h"

#include <QByteArray>
#include <QtGlobal>
#include <filesystem>

namespace tarvin::bench {

PrivateHome::PrivateHome(const std::string& in) : folder_(in) {
    namespace fs = std::filesystem;
    const auto set = [this](const char* variable, const char* name) {
        std::string path = folder_.pathOf(name);
        fs::create_directories(path);
        qputenv(variable, QByteArray::fromStdString(path));
        return path;
    };
    set("HOME", "home");
    for (const char* name : {"home/Desktop", "home/Documents", "home/Pictures"}) {
        fs::create_directories(folder_.pathOf(name));
    }
    set("XDG_CONFIG_HOME", "home/.config");
    set("XDG_DATA_HOME", "home/.local/share");
    set("XDG_CACHE_HOME", "home/.cache");
    const std::string runtime = set("XDG_RUNTIME_DIR", "runtime");
    fs::permissions(runtime, fs::perms::owner_all);
}

}  // namespace tarvin::bench
