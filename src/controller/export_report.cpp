#include "controller/export_report.h"

#include <array>
#include <cstddef>
#include <memory>
#include <unordered_map>

namespace tarvin {

namespace {

using CategoryOfExtension = std::unordered_map<const Extensions*, Category>;

CategoryOfExtension categoriesIn(const ScanResult& result) {
    CategoryOfExtension categories;
    for (const Category category : allCategories) {
        if (const std::shared_ptr<Modal>& list = result.of(category)) {
            for (const std::shared_ptr<Extensions>& extension : list->extensions()) {
                categories.emplace(extension.get(), category);
            }
        }
    }
    return categories;
}

}  // namespace

ScanReport exportReport(const ScanRun& scan, const Modal& list) {
    const CategoryOfExtension categories = categoriesIn(scan.result());
    std::array<std::shared_ptr<Modal>, allCategories.size()> lists;
    for (std::shared_ptr<Modal>& each : lists) {
        each = std::make_shared<Modal>();
    }
    for (const std::shared_ptr<Extensions>& extension : list.extensions()) {
        const auto known = categories.find(extension.get());
        const Category category = known == categories.end() ? Category::other : known->second;
        if (extension->nummberOfSets() > 0) {
            lists[static_cast<std::size_t>(category)]->addExtension(extension);
        }
    }
    ScanReport report = reportOf(scan);
    for (ScanReport::CategoryReport& category : report.categories) {
        const std::shared_ptr<Modal>& made = lists[static_cast<std::size_t>(category.category)];
        made->calculateTotalFilesAndSize();
        category.result = made;
    }
    report.hasMarks = true;
    return report;
}

}  // namespace tarvin
