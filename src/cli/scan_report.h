#pragma once

#include "model/modal.h"
#include "scan/category.h"
#include "scan/scan_run.h"

#include <array>
#include <cstdint>
#include <memory>

namespace tarvin {

/// What a finished or stopped scan has to tell, in whatever format. Shares the result trees, which
/// must not change while a report is written.
struct ScanReport {
    struct CategoryReport {
        Category category = Category::image;
        std::uint64_t collected = 0;  ///< files that were there to be compared
        std::shared_ptr<const Modal> result = std::make_shared<Modal>();  ///< never none
    };

    /// In the order of allCategories.
    std::array<CategoryReport, allCategories.size()> categories = emptyCategories();
    bool stopped = false;  ///< on request, before the end: there may be more duplicates
    double elapsedSeconds = 0;

    [[nodiscard]] std::uint64_t collected() const;
    /// Duplicate copies, which is what could be given up, and their bytes.
    [[nodiscard]] std::uint64_t totalFiles() const;
    [[nodiscard]] std::uint64_t totalFilesSize() const;
    [[nodiscard]] std::uint64_t totalSets() const;

 private:
    static std::array<CategoryReport, allCategories.size()> emptyCategories();
};

/// The report of a scan that is over.
[[nodiscard]] ScanReport reportOf(const ScanRun& run);

}  // namespace tarvin
