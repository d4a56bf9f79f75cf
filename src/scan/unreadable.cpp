#include "scan/unreadable.h"

#include <algorithm>
#include <cerrno>
#include <tuple>

namespace tarvin {

namespace {

/// Whether an error means that an entry exists but cannot be read. An entry that was removed since
/// its folder was listed, or replaced by a link or another type of entry, is not unreadable.
bool meansUnreadable(SystemError error) {
    return error.code != ENOENT && error.code != ENOTDIR && error.code != ELOOP;
}

}  // namespace

void UnreadableLog::addFolder(const Directory& folder, SystemError error) {
    add(folder, {}, error);
}

void UnreadableLog::addFile(const Directory& folder, std::string_view name, SystemError error) {
    add(folder, name, error);
}

void UnreadableLog::addFile(const File& file, SystemError error) {
    if (!meansUnreadable(error)) {
        return;
    }
    {
        const std::lock_guard lock(mutex_);
        if (!collected_.insert(&file).second) {
            return;
        }
    }
    add(*file.directory(), file.fileName(), error);
}

void UnreadableLog::add(const Directory& folder, std::string_view name, SystemError error) {
    if (!meansUnreadable(error)) {
        return;
    }
    const std::lock_guard lock(mutex_);
    ++(name.empty() ? folders_ : files_);
    if (entries_.size() < maxKept) {
        entries_.push_back({&folder, std::string(name), error});
    }
}

UnreadableReport UnreadableLog::report() const {
    UnreadableReport report;
    const std::lock_guard lock(mutex_);
    report.folders = folders_;
    report.files = files_;
    report.collectedFiles = collected_.size();
    report.kept.reserve(entries_.size());
    for (const Entry& entry : entries_) {
        const bool isFolder = entry.name.empty();
        report.kept.push_back({isFolder ? entry.folder->path() : entry.folder->pathOf(entry.name),
                               isFolder, entry.error});
    }
    std::stable_sort(
        report.kept.begin(), report.kept.end(), [](const Unreadable& one, const Unreadable& other) {
            return std::tie(other.isFolder, one.path) < std::tie(one.isFolder, other.path);
        });
    return report;
}

}  // namespace tarvin
