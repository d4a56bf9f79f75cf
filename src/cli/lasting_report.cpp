#include "cli/lasting_report.h"

#include "cli/messages.h"
#include "text/shown_name.h"

#include <unistd.h>

#include <cerrno>

namespace tarvin {

ReportTarget::ReportTarget(std::string shownName, OutputFile& file)
    : shownName_(std::move(shownName)), file_(file), errors_(STDERR_FILENO) {}

bool ReportTarget::flush() {
    if (failure_) {
        return false;
    }
    file_.output().flush();
    failure_ = file_.output().error();
    if (!failure_) {
        return true;
    }
    const std::string kept = file_.keepUnfinished();
    printError(failureText("write", shownName_, failure_->text()) +
               (kept.empty() ? "" : "; partial report kept as " + quotedName(kept)) +
               "; the rest of the report follows");
    return false;
}

ExitStatus ReportTarget::commit() {
    if (failure_) {
        return failure_->code == EPIPE ? ExitStatus::outputClosed : ExitStatus::incomplete;
    }
    if (const std::optional<SystemError> failure = file_.commit()) {
        const std::string kept = file_.keepUnfinished();
        printError(failureText("write", shownName_, failure->text()) +
                   (kept.empty() ? "" : "; report kept as " + quotedName(kept)));
        return ExitStatus::incomplete;
    }
    return ExitStatus::done;
}

}  // namespace tarvin
