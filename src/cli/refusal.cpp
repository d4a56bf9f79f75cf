#include "cli/refusal.h"

#include "cli/messages.h"
#include "text/shown_name.h"

namespace tarvin {

ExitStatus refuse(const std::string& reason, const std::string& helpCommand) {
    printError(printable(reason) + "\nTry '" + helpCommand + " --help'.");
    return ExitStatus::wrongUsage;
}

}  // namespace tarvin
