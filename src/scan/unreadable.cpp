#include "scan/unreadable.h"

#include <algorithm>
#include <cerrno>
#include <tuple>

namespace tarvin {

namespace {

/// Whether the error of a call that does not follow links says that the entry, or a folder above
/// it, is of another type now.
bool meansReplaced(SystemError error) {
    return error.code == ENOTDIR || error.code == ELOOP;
}

}  // namespace

std::string reasonOf(const Unreadable& unreadable) {
    return unreadable.hasChanged ? "changed while it was read" : unreadable.error.text();
}

void UnreadableLog::addFolder(const Directory& folder, SystemError error) {
    if (!meansReplaced(error)) {
        const std::lock_guard lock(mutex_);
        addEntry(folder, {}, error);
    }
}

void UnreadableLog::addFile(const Directory& folder, std::string_view name, SystemError error) {
    if (!meansReplaced(error) && error.code != ENOENT) {
        const std::lock_guard lock(mutex_);
        addEntry(folder, name, error);
    }
}

void UnreadableLog::addFile(const File& file, SystemError error) {
    addCollected(file, error, meansReplaced(error));
}

void UnreadableLog::addChanged(const File& file) {
    addCollected(file, {}, true);
}

void UnreadableLog::addCollected(const File& file, SystemError error, bool hasChanged) {
    const std::lock_guard lock(mutex_);
    if (collected_.insert(&file).second) {
        addEntry(*file.directory(), file.fileName(), hasChanged ? SystemError{} : error,
                 hasChanged);
    }
}

void UnreadableLog::addEntry(const Directory& folder, std::string_view name, SystemError error,
                             bool hasChanged) {
    ++(name.empty() ? folders_ : files_);
    if (entries_.size() < maxKept) {
        entries_.push_back({&folder, std::string(name), error, hasChanged});
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
                               isFolder, entry.error, entry.hasChanged});
    }
    std::stable_sort(
        report.kept.begin(), report.kept.end(), [](const Unreadable& one, const Unreadable& other) {
            return std::tie(other.isFolder, one.path) < std::tie(one.isFolder, other.path);
        });
    return report;
}

}  // namespace tarvin
