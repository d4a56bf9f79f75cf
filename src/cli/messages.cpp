#include "cli/messages.h"

#include "report/display.h"
#include "report/output.h"
#include "text/shown_name.h"

#include <unistd.h>

#include <cerrno>
#include <optional>

namespace tarvin {

void printError(std::string_view text) {
    Output output(STDERR_FILENO);
    const bool isColored = displayOf(STDERR_FILENO).isColored;
    output.append(isColored ? red : "");
    output.append("tarvin:");
    output.append(isColored ? plain : "");
    output.append(" ");
    output.append(text);
    output.append("\n");
    output.flush();
}

std::string failureText(std::string_view action, std::string_view object, std::string_view reason) {
    return std::string("cannot ").append(action).append(" ").append(object).append(": ").append(
        reason);
}

void printPathError(std::string_view action, std::string_view path, std::string_view reason) {
    printError(failureText(action, quotedName(path), reason));
}

ExitStatus printStoreError(std::string_view action, const StoreError& error) {
    if (error.path.empty()) {
        printError(std::string("cannot ").append(action).append(": ").append(error.text));
    } else {
        printPathError(action, error.path, error.text);
    }
    return ExitStatus::incomplete;
}

void printRecordError(const StoreError& error, std::string_view totalsPath) {
    const bool isAboutTotals = !error.path.empty() && totalsPath.starts_with(error.path);
    printStoreError(isAboutTotals ? "store totals in" : "write journal", error);
}

ExitStatus printNoHomeFolder(std::string_view action) {
    return printStoreError(action, {"", "no home folder"});
}

void printCannotConfirm(std::string_view action) {
    printError(std::string("cannot ask for confirmation: standard input or standard error is not a "
                           "terminal; use --yes to ")
                   .append(action)
                   .append(", or --dry-run to list them"));
}

void printMovedAside(std::string_view path, std::string_view aside) {
    printError(quotedName(path) + " is damaged; kept as " + quotedName(aside) +
               ", and a new file was started");
}

ExitStatus print(std::string_view text) {
    Output output(STDOUT_FILENO);
    output.append(text);
    output.flush();
    const std::optional<SystemError> failure = output.error();
    return failure ? statusOfFailure("standard output", *failure) : ExitStatus::done;
}

ExitStatus statusOfFailure(std::string_view target, const SystemError& failure) {
    if (failure.code == EPIPE) {
        return ExitStatus::outputClosed;
    }
    printError(failureText("write", target, failure.text()));
    return ExitStatus::incomplete;
}

ExitStatus refuse(const std::string& reason, const std::string& helpCommand) {
    printError(printable(reason) + "\nTry '" + helpCommand + " --help'.");
    return ExitStatus::wrongUsage;
}

}  // namespace tarvin
