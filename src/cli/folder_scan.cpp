#include "cli/folder_scan.h"

#include "cli/messages.h"
#include "cli/progress_line.h"
#include "report/display.h"
#include "text/shown_name.h"

#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

// Unreadable folders and files inside the given folders; the others are only counted.
constexpr std::size_t maxNamed = 20;

void printErrors(const std::vector<UnreadableLocation>& locations) {
    for (const UnreadableLocation& location : locations) {
        const bool isRefused = location.isTrash || location.isSpecial;
        printPathError(isRefused           ? "scan"
                       : location.isFolder ? "read folder"
                                           : "read",
                       location.path, reasonOf(location));
    }
}

void printErrors(const UnreadableReport& unreadable) {
    const std::size_t named = std::min(maxNamed, unreadable.kept.size());
    for (std::size_t entry = 0; entry < named; ++entry) {
        const Unreadable& each = unreadable.kept[entry];
        printPathError(each.isFolder ? "read folder" : "read", each.path, reasonOf(each));
    }
    if (unreadable.total() > named) {
        const std::uint64_t more = unreadable.total() - named;
        printError(more == 1 ? std::string("cannot read 1 more file or folder")
                             : "cannot read " + std::to_string(more) + " more files and folders");
    }
}

}  // namespace

FolderScan::FolderScan(Platform& platform, const ScanOptions& options)
    : platform_(platform),
      options_(options),
      folders_(foldersOf(options)),
      run_(platform, mailbox_) {}

void FolderScan::start(ExceptionFilter exceptions) {
    prepareMemory();
    run_.start(std::move(folders_.rows), std::move(exceptions), options_.filter);
}

void FolderScan::start(std::shared_ptr<ListedFiles> files, ExceptionFilter exceptions) {
    run_.start(std::move(files), std::move(exceptions));
}

void FolderScan::prepareMemory() {
    if (!options_.remembers) {
        return;
    }
    const std::optional<std::string> folder = platform_.applicationSupportFolder();
    if (folder) {
        run_.setMemory(folder);
    } else {
        printNoHomeFolder("remember scans");
    }
}

void FolderScan::finishRemembering() {
    run_.waitForMemory();
    const MemoryReport report = run_.memoryReport();
    if (!report.damaged.empty()) {
        printError(quotedName(report.damaged) + " was damaged; a new file was started");
    }
    if (report.notRead) {
        printStoreError("read remembered scans", *report.notRead);
    }
    if (report.notStored) {
        printStoreError("remember this scan in", *report.notStored);
    }
}

void FolderScan::wait() {
    {
        std::optional<ProgressLine> line;
        if (showsProgress()) {
            line.emplace(STDERR_FILENO, [this] { return progress(); });
        }
        run_.wait();
    }
    printErrors(folders_.unreadable);
    printErrors(run_.result().unreadableLocations);
    printErrors(run_.result().unreadable);
    if (run_.result().ranOutOfMemory) {
        printError("cannot finish the scan: out of memory; the result is incomplete");
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
        // Fresher than the mailbox, which is not updated for every file.
        progress.processed = run_.processed();
        progress.bytesRead = run_.bytesRead();
    }
    return progress;
}

}  // namespace tarvin
