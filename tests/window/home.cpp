#include "window/home.h"

#include <filesystem>

namespace tarvin {

Home::Home() : Home(std::filesystem::temp_directory_path()) {}

Home::Home(const std::filesystem::path& parent) : folder_(parent), program_(TARVIN_PROGRAM) {
    for (const char* name : {"Desktop", "Documents", "Pictures"}) {
        folder_.makeFolder(name);
    }
    std::filesystem::permissions(folder_.makeFolder(".runtime"), std::filesystem::perms::owner_all);
}

std::unique_ptr<ChildProcess> Home::startProduct(const ChildProcess::Words& arguments) {
    ChildProcess::Words words{program_};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return std::make_unique<ChildProcess>(
        words, folder_.pathOf(".instance-" + std::to_string(++started_)),
        ChildProcess::Environment{{"HOME", folder_.path()},
                                  {"XDG_RUNTIME_DIR", folder_.pathOf(".runtime")},
                                  {"XDG_CACHE_HOME", folder_.pathOf(".cache")},
                                  {"XDG_CONFIG_HOME", folder_.pathOf(".config")},
                                  {"XDG_DATA_HOME", folder_.pathOf(".local/share")},
                                  {"LANGUAGE", languages_}});
}

}  // namespace tarvin
