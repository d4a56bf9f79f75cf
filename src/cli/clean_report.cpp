#include "cli/clean_report.h"

#include "cli/messages.h"
#include "cli/shown_name.h"

#include <unistd.h>

#include <cerrno>
#include <string>

namespace tarvin {

CleanReport::CleanReport(const ScanOptions& options, OutputFile& output)
    : options_(options),
      file_(output),
      writer_(makeCleanWriter(options.format, false, output.output())),
      errors_(STDERR_FILENO),
      rest_(makeCleanWriter(ResultFormat::text, false, errors_)) {
    writer_->begin();
}

void CleanReport::file(const File& file, const MoveResult& result) {
    if (!failure_) {
        writer_->file(file, result);
        file_.output().flush();
        noteFailure();
    }
    if (failure_) {
        rest_->file(file, result);
        errors_.flush();
    }
}

ExitStatus CleanReport::end(const CleanSummary& summary) {
    if (!failure_) {
        writer_->end(summary);
        file_.output().flush();
        noteFailure();
    }
    if (failure_) {
        rest_->end(summary);
        errors_.flush();
        return failure_->code == EPIPE ? ExitStatus::outputClosed : ExitStatus::incomplete;
    }
    if (const std::optional<SystemError> failure = file_.commit()) {
        const std::string kept = file_.keepUnfinished();
        complain(shownOutput(options_) + ": " + failure->text() +
                 (kept.empty() ? "" : "; the report is kept as " + shownName(kept)));
        return ExitStatus::incomplete;
    }
    return ExitStatus::done;
}

void CleanReport::noteFailure() {
    failure_ = file_.output().error();
    if (!failure_) {
        return;
    }
    const std::string kept = file_.keepUnfinished();
    complain(shownOutput(options_) + ": " + failure_->text() +
             (kept.empty() ? "" : "; what was written is kept as " + shownName(kept)) +
             "; the rest of the report follows");
}

}  // namespace tarvin
