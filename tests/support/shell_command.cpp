#include "support/shell_command.h"

#include <sys/wait.h>

#include <array>
#include <cstddef>
#include <cstdio>

namespace tarvin {

CommandResult runCommand(const std::string& command) {
    const std::string line = "cd '" TARVIN_SOURCE_DIR "' && { " + command + "\n} </dev/null 2>&1";
    CommandResult result;
    std::FILE* pipe = popen(line.c_str(), "r");
    if (pipe == nullptr) {
        return result;
    }
    std::array<char, 4096> block{};
    while (const std::size_t got = std::fread(block.data(), 1, block.size(), pipe)) {
        result.output.append(block.data(), got);
    }
    const int ended = pclose(pipe);
    if (ended != -1 && WIFEXITED(ended)) {
        result.status = WEXITSTATUS(ended);
    }
    return result;
}

}  // namespace tarvin
