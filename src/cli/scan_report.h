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

/// What a finished or stopped scan has to tell, in whatever format. Shares the result trees, which
/// must not change while a report is written.
struct ScanReport {
    struct CategoryReport {
        Category category = Category::image;
        std::uint64_t collected = 0;  ///< files that were there to be compared
        std::shared_ptr<const Modal> result = std::make_shared<Modal>();  ///< never none
    };

    struct NotRead {
        std::string path;
        std::string reason;
    };

    /// In the order of allCategories.
    std::array<CategoryReport, allCategories.size()> categories = emptyCategories();
    /// Ended early, on request or for lack of memory: there may be more duplicates.
    bool stopped = false;
    double elapsedSeconds = 0;
    /// The given folders that could not be read, then what could not be read inside the others.
    std::vector<NotRead> unreadable;
    /// Collected files among them, which were not compared.
    std::uint64_t notCompared = 0;

    [[nodiscard]] std::uint64_t collected() const;
    /// Collected files, without those that could not be read.
    [[nodiscard]] std::uint64_t compared() const { return collected() - notCompared; }
    /// Duplicate copies, which is what could be given up, and their bytes.
    [[nodiscard]] std::uint64_t totalFiles() const;
    [[nodiscard]] std::uint64_t totalFilesSize() const;
    [[nodiscard]] std::uint64_t totalSets() const;
    /// Bytes that are free once every file but the first of each set has gone: names of one file
    /// count as one. Less than totalFilesSize() only where there are hard links.
    [[nodiscard]] std::uint64_t reclaimable() const;

 private:
    static std::array<CategoryReport, allCategories.size()> emptyCategories();
};

/// Why a given folder was not scanned.
[[nodiscard]] std::string reasonOf(const UnreadableLocation& location);

/// The report of a scan that is over.
[[nodiscard]] ScanReport reportOf(const ScanRun& run);

}  // namespace tarvin
