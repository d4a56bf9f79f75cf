#include "cli/program.h"
#include "platform/platform.h"

#include <cstddef>
#include <span>

int main(int argc, char** argv) {
    const std::span<char*> all(argv, static_cast<std::size_t>(argc));
    const auto arguments = all.subspan(all.empty() ? 0 : 1);
    return tarvin::runProgram({arguments.data(), arguments.size()}, tarvin::systemPlatform());
}
