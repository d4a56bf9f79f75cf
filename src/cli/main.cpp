#include "cli/command.h"
#include "cli/program.h"
#include "platform/platform.h"

#include <unistd.h>

#include <cstddef>
#include <new>
#include <span>
#include <string_view>

int main(int argc, char** argv) {
    const std::span<char*> all(argv, static_cast<std::size_t>(argc));
    const auto arguments = all.subspan(all.empty() ? 0 : 1);
    try {
        return tarvin::runProgram({arguments.data(), arguments.size()}, tarvin::systemPlatform());
    } catch (const std::bad_alloc&) {
        // write() allocates no memory.
        constexpr std::string_view message = "tarvin: out of memory\n";
        static_cast<void>(!::write(STDERR_FILENO, message.data(), message.size()));
        return static_cast<int>(tarvin::ExitStatus::incomplete);
    }
}
