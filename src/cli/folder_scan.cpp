#include "cli/folder_scan.h"

#include "cli/messages.h"
#include "cli/progress_line.h"
#include "cli/terminal.h"

#include <unistd.h>

#include <string>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

void complainAboutAll(const std::vector<UnreadableLocation>& locations) {
    for (const UnreadableLocation& location : locations) {
        complainAbout(location.path, location.error.text());
    }
}

}  // namespace

FolderScan::FolderScan(Platform& platform, const ScanOptions& options)
    : options_(options), folders_(foldersOf(options)), run_(platform, mailbox_) {}

void FolderScan::start(ExceptionFilter exceptions) {
    run_.start(std::move(folders_.rows), std::move(exceptions));
}

void FolderScan::wait() {
    {
        std::optional<ProgressLine> line;
        if (showsProgress()) {
            line.emplace(STDERR_FILENO, [this] { return progress(); });
        }
        run_.wait();
    }
    complainAboutAll(folders_.unreadable);
    complainAboutAll(run_.unreadableLocations());
}

bool FolderScan::hasReadAll() const {
    return folders_.unreadable.empty() && run_.unreadableLocations().empty();
}

bool FolderScan::showsProgress() const {
    return options_.progress == ProgressWhen::always ||
           (options_.progress == ProgressWhen::automatic && isDrawable(STDERR_FILENO));
}

Progress FolderScan::progress() const {
    Progress progress = mailbox_.latest();
    if (progress.comparing) {
        // Newer than what has been told, which is not every file.
        progress.processed = run_.processed();
        progress.bytesRead = run_.bytesRead();
    }
    return progress;
}

}  // namespace tarvin
