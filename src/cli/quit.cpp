#include "cli/quit.h"

#include "cli/command.h"

#include <cstdlib>

namespace tarvin {

void quitAtOnce(const OutputFile& output) {
    output.removeTemporary();
    std::_Exit(static_cast<int>(ExitStatus::stopped));
}

}  // namespace tarvin
