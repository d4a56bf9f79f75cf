#include "cli/folder_scan.h"

#include "cli/messages.h"
#include "cli/progress_line.h"
#include "cli/terminal.h"

#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

// More of what lies inside the given folders is counted, not named.
constexpr std::size_t maxNamed = 20;

void complainAboutAll(const std::vector<UnreadableLocation>& locations) {
    for (const UnreadableLocation& location : locations) {
        complainAbout(location.path, reasonOf(location));
    }
}

void complainAboutAll(const UnreadableReport& unreadable) {
    const std::size_t named = std::min(maxNamed, unreadable.kept.size());
    for (std::size_t entry = 0; entry < named; ++entry) {
        complainAbout(unreadable.kept[entry].path, unreadable.kept[entry].error.text());
    }
    if (unreadable.total() > named) {
        complain(std::to_string(unreadable.total() - named) +
                 " more folders and files could not be read");
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
    complainAboutAll(run_.result().unreadableLocations);
    complainAboutAll(run_.result().unreadable);
    if (run_.result().ranOutOfMemory) {
        complain("there is not enough memory to finish the scan; the result is incomplete");
    }
}

bool FolderScan::hasReadAll() const {
    return folders_.unreadable.empty() && run_.result().unreadableLocations.empty() &&
           run_.result().unreadable.total() == 0 && !run_.result().ranOutOfMemory;
}

ScanReport FolderScan::report() const {
    ScanReport report = reportOf(run_);
    std::vector<ScanReport::NotRead> given;
    given.reserve(folders_.unreadable.size());
    for (const UnreadableLocation& location : folders_.unreadable) {
        given.push_back({location.path, reasonOf(location)});
    }
    report.unreadable.insert(report.unreadable.begin(), given.begin(), given.end());
    return report;
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
