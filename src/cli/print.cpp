#include "cli/print.h"

#include "cli/messages.h"
#include "cli/output.h"

#include <unistd.h>

#include <cerrno>
#include <string>

namespace tarvin {

ExitStatus print(std::string_view text) {
    Output output(STDOUT_FILENO);
    output.append(text);
    return output.flush() ? ExitStatus::done : statusOfFailure("standard output", *output.error());
}

ExitStatus statusOfFailure(std::string_view place, const SystemError& failure) {
    if (failure.code == EPIPE) {
        return ExitStatus::outputClosed;
    }
    complain(std::string(place) + ": " + failure.text());
    return ExitStatus::incomplete;
}

}  // namespace tarvin
