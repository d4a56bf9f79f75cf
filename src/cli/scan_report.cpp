#include "cli/scan_report.h"

namespace tarvin {

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

std::array<ScanReport::CategoryReport, allCategories.size()> ScanReport::emptyCategories() {
    std::array<CategoryReport, allCategories.size()> categories;
    for (std::size_t position = 0; position < categories.size(); ++position) {
        categories[position].category = allCategories[position];
    }
    return categories;
}

std::string reasonOf(const UnreadableLocation& location) {
    return location.isTrash ? "Trash folders are never scanned" : location.error.text();
}

ScanReport reportOf(const ScanRun& run) {
    ScanReport report;
    for (ScanReport::CategoryReport& category : report.categories) {
        category.collected = run.collected(category.category);
        // A scan that found no files has not made a list.
        if (const std::shared_ptr<Modal>& result = run.of(category.category)) {
            category.result = result;
        }
    }
    report.stopped = run.wasStopped() || run.ranOutOfMemory();
    report.elapsedSeconds = run.duration().count();
    for (const UnreadableLocation& location : run.unreadableLocations()) {
        report.unreadable.push_back({location.path, reasonOf(location)});
    }
    for (const Unreadable& unreadable : run.unreadable().kept) {
        report.unreadable.push_back({unreadable.path, unreadable.error.text()});
    }
    report.notCompared = run.unreadable().collectedFiles;
    return report;
}

}  // namespace tarvin
