#include "platform/conventions.h"

namespace tarvin {

const Conventions& conventions() {
    static constexpr Conventions ours{.resources = "../Resources/",
                                      .program = "*.app/Contents/MacOS/*",
                                      .fileShower = "/usr/bin/open",
                                      .fileShowerOption = "-R",
                                      .alwaysHasDisplay = true};
    return ours;
}

std::string libraryFile(std::string_view name, int abiVersion) {
    // The prefixes that Homebrew has on the two processors.
#ifdef __aarch64__
    constexpr std::string_view folder = "/opt/homebrew/lib/";
#else
    constexpr std::string_view folder = "/usr/local/lib/";
#endif
    return std::string(folder).append(name) + '.' + std::to_string(abiVersion) + ".dylib";
}

}  // namespace tarvin
