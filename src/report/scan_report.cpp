#include "report/scan_report.h"

#include <algorithm>
#include <cstddef>
#include <tuple>

namespace tarvin {

namespace {

/// Bytes of a set without its first file. A file without a known identity counts as a separate
/// file.
std::uint64_t reclaimableOf(const Set& set, std::vector<FileIdentity>& known) {
    known.clear();
    std::uint64_t files = 0;
    for (const std::shared_ptr<File>& file : set.files()) {
        if (const ComparedState* const compared = file->compared()) {
            known.push_back(compared->identity);
        } else {
            ++files;
        }
    }
    std::sort(known.begin(), known.end(), [](const FileIdentity& one, const FileIdentity& other) {
        return std::tie(one.device, one.inode) < std::tie(other.device, other.inode);
    });
    files += static_cast<std::uint64_t>(std::unique(known.begin(), known.end()) - known.begin());
    return files < 2 ? 0 : (files - 1) * set.files().front()->fileSize();
}

}  // namespace

std::uint64_t ScanReport::collected() const {
    std::uint64_t sum = 0;
    for (const CategoryReport& category : categories) {
        sum += category.collected;
    }
    return sum;
}

std::uint64_t ScanReport::totalFiles() const {
    std::uint64_t sum = 0;
    for (const CategoryReport& category : categories) {
        sum += category.result->totalFiles();
    }
    return sum;
}

std::uint64_t ScanReport::totalFilesSize() const {
    std::uint64_t sum = 0;
    for (const CategoryReport& category : categories) {
        sum += category.result->totalFilesSize();
    }
    return sum;
}

std::uint64_t ScanReport::totalSets() const {
    std::uint64_t sum = 0;
    for (const CategoryReport& category : categories) {
        for (const auto& extension : category.result->extensions()) {
            sum += extension->nummberOfSets();
        }
    }
    return sum;
}

std::uint64_t ScanReport::reclaimable() const {
    std::uint64_t sum = 0;
    std::vector<FileIdentity> known;
    for (const CategoryReport& category : categories) {
        for (const auto& extension : category.result->extensions()) {
            for (const std::shared_ptr<Set>& set : extension->sets()) {
                sum += reclaimableOf(*set, known);
            }
        }
    }
    return sum;
}

std::array<ScanReport::CategoryReport, allCategories.size()> ScanReport::emptyCategories() {
    std::array<CategoryReport, allCategories.size()> categories;
    for (std::size_t position = 0; position < categories.size(); ++position) {
        categories[position].category = allCategories[position];
    }
    return categories;
}

std::string reasonOf(const UnreadableLocation& location) {
    if (location.isSpecial) {
        return "neither a folder nor a regular file";
    }
    return location.isTrash ? "Trash folders are never scanned" : location.error.text();
}

ScanReport reportOf(const ScanRun& run) {
    ScanReport report;
    for (ScanReport::CategoryReport& category : report.categories) {
        category.collected = run.result().collected(category.category);
        // A scan that found no files has no list.
        if (const std::shared_ptr<Modal>& result = run.result().of(category.category)) {
            category.result = result;
        }
    }
    report.stopped = run.wasStopped() || run.result().ranOutOfMemory;
    report.elapsedSeconds = run.result().duration.count();
    for (const UnreadableLocation& location : run.result().unreadableLocations) {
        report.unreadable.push_back({location.path, reasonOf(location)});
    }
    for (const Unreadable& unreadable : run.result().unreadable.kept) {
        report.unreadable.push_back({unreadable.path, reasonOf(unreadable)});
    }
    report.notCompared = run.result().unreadable.collectedFiles;
    return report;
}

}  // namespace tarvin
