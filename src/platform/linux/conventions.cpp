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

}  // namespace tarvin
