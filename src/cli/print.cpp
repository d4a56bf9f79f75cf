#include "cli/print.h"

#include "cli/messages.h"
#include "cli/output.h"

#include <unistd.h>

namespace tarvin {

ExitStatus print(std::string_view text) {
    Output output(STDOUT_FILENO);
    output.append(text);
    if (!output.flush()) {
        complain("standard output: " + output.error()->text());
        return ExitStatus::incomplete;
    }
    return ExitStatus::done;
}

}  // namespace tarvin
