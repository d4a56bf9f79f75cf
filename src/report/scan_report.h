#pragma once

#include "model/modal.h"
#include "scan/category.h"
#include "scan/scan_run.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

/// The result of a finished or stopped scan. Shares the result trees, which must not change while a
/// report is written.
struct ScanReport {
    struct CategoryReport {
        Category category = Category::image;
        std::uint64_t collected = 0;  ///< files found, to be compared
        std::shared_ptr<const Modal> result = std::make_shared<Modal>();  ///< never null
    };

    struct NotRead {
        std::string path;
        std::string reason;
    };

    /// In the order of allCategories.
    std::array<CategoryReport, allCategories.size()> categories = emptyCategories();
    /// Ended early, on request or out of memory: there may be more duplicates.
    bool stopped = false;
    double elapsedSeconds = 0;
    /// The given folders that could not be read, then unreadable folders and files inside the
    /// others.
    std::vector<NotRead> unreadable;
    /// Collected files among them.
    std::uint64_t notCompared = 0;
    /// The marks are a choice of the user: the writers show for each file whether it is marked.
    bool hasMarks = false;

    [[nodiscard]] std::uint64_t collected() const;
    /// Collected files, without those that could not be read.
    [[nodiscard]] std::uint64_t compared() const { return collected() - notCompared; }
    /// Duplicates, without the first file of each set, and their bytes.
    [[nodiscard]] std::uint64_t totalFiles() const;
    [[nodiscard]] std::uint64_t totalFilesSize() const;
    [[nodiscard]] std::uint64_t totalSets() const;
    /// Bytes freed if only the first file of each set stays. Hard links of one file count once, so
    /// this can be less than totalFilesSize().
    [[nodiscard]] std::uint64_t reclaimable() const;

 private:
    static std::array<CategoryReport, allCategories.size()> emptyCategories();
};

/// Why a given folder or file was not scanned.
[[nodiscard]] std::string reasonOf(const UnreadableLocation& location);

/// The report of a scan that has ended.
[[nodiscard]] ScanReport reportOf(const ScanRun& run);

}  // namespace tarvin
