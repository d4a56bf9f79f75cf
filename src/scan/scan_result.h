#pragma once

#include "model/modal.h"
#include "scan/category.h"
#include "scan/unreadable.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace tarvin {

/// One list for each category, indexed by Category. nullptr for a category that was not compared.
using CategoryResults = std::array<std::shared_ptr<Modal>, allCategories.size()>;

/// Joins the lists of all categories, in the order of allCategories, into a new list that shares
/// their extensions. Its totals are the sums of theirs. Skips categories without a list.
[[nodiscard]] std::shared_ptr<Modal> joinCategories(const CategoryResults& categories);

/// The result of one scan: lists, counts, errors and duration.
struct ScanResult {
    CategoryResults categories;
    /// All categories joined; empty if nothing was compared. Never nullptr.
    std::shared_ptr<Modal> modal = std::make_shared<Modal>();
    /// Collected files by category.
    std::array<std::uint64_t, allCategories.size()> collectedFiles{};
    /// The checked locations that could not be read.
    std::vector<UnreadableLocation> unreadableLocations;
    /// The folders and files inside the locations that could not be read.
    UnreadableReport unreadable;
    /// From the start to the result, pauses included.
    std::chrono::duration<double> duration{0};
    /// Memory ran out, which ended the scan like a stop.
    bool ranOutOfMemory = false;

    [[nodiscard]] const std::shared_ptr<Modal>& of(Category category) const {
        return categories[static_cast<std::size_t>(category)];
    }
    [[nodiscard]] const std::shared_ptr<Modal>& imageModal() const { return of(Category::image); }
    [[nodiscard]] const std::shared_ptr<Modal>& videoModal() const { return of(Category::video); }
    [[nodiscard]] const std::shared_ptr<Modal>& audioModal() const { return of(Category::audio); }
    [[nodiscard]] const std::shared_ptr<Modal>& docsModal() const {
        return of(Category::documents);
    }
    [[nodiscard]] const std::shared_ptr<Modal>& otherModal() const { return of(Category::other); }
    [[nodiscard]] std::uint64_t collected(Category category) const {
        return collectedFiles[static_cast<std::size_t>(category)];
    }
};

}  // namespace tarvin
