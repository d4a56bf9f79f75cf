#include "cli/print.h"

#include "cli/messages.h"
#include "cli/output.h"

#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>

namespace tarvin {

ExitStatus print(std::string_view text) {
    Output output(STDOUT_FILENO);
    output.append(text);
    output.flush();
    const std::optional<SystemError> failure = output.error();
    return failure ? statusOfFailure("standard output", *failure) : ExitStatus::done;
}

ExitStatus statusOfFailure(std::string_view place, const SystemError& failure) {
    if (failure.code == EPIPE) {
        return ExitStatus::outputClosed;
    }
    printError(failureText("write", place, failure.text()));
    return ExitStatus::incomplete;
}

}  // namespace tarvin
