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

}  // namespace tarvin
