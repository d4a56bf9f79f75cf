#include "cli/restore_report.h"

#include "cli/file_option.h"
#include "cli/messages.h"

namespace tarvin {

RestoreReport::RestoreReport(const RestoreSubject& subject, ResultFormat format,
                             const std::string& place, OutputFile& output)
    : report_(format, shownOutput(place), output, [&subject](ResultFormat written, Output& to) {
          return makeRestoreWriter(written, subject, to);
      }) {}

void RestoreReport::add(const PutBackFile& file) {
    report_.write([&](RestoreWriter& writer) { writer.file(file); });
    if (isBack(file.outcome)) {
        ++summary_.files;
        summary_.bytes += file.size;
        return;
    }
    ++summary_.notFiles;
    if (file.outcome == PutBackOutcome::stopped) {
        summary_.stopped = true;
    } else {
        printPathError("put back", file.path, reasonFor(file));
        ++refused_;
    }
}

ExitStatus RestoreReport::end() {
    const ExitStatus written = report_.end([this](RestoreWriter& writer) { writer.end(summary_); });
    if (summary_.stopped) {
        return ExitStatus::stopped;
    }
    return refused_ == 0 ? written : ExitStatus::incomplete;
}

}  // namespace tarvin
