#include "controller/updater_program.h"

namespace tarvin {

std::string updaterProgramPath() {
    return TARVIN_UPDATER;
}

}  // namespace tarvin
