#include "platform/conventions.h"

namespace tarvin {

const Conventions& conventions() {
    static constexpr Conventions ours{.resources = "../share/tarvin-duplicate-file-remover/",
                                      .program = "*",
                                      .fileShower = nullptr,
                                      .fileShowerOption = nullptr,
                                      .alwaysHasDisplay = false};
    return ours;
}

std::string libraryFile(std::string_view name, int abiVersion) {
    return std::string(name) + ".so." + std::to_string(abiVersion);
}

}  // namespace tarvin
