#include "controller/sort_files.h"

#include "controller/result_texts.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace tarvin {

namespace {

/// A file with its date, copied so that comparisons do not miss the cache on each file.
struct DatedFile {
    std::int64_t key;  // sorted in ascending order
    std::size_t position;
};

std::int64_t keyOf(const File& file, bool ascending) {
    const std::optional<Timestamp> created = file.fileCreationDate();
    const std::int64_t key =
        created ? created->time_since_epoch().count() : std::numeric_limits<std::int64_t>::min();
    return ascending ? key : ~key;  // reverses the order without overflow
}

std::vector<DatedFile> datesOf(const std::vector<std::shared_ptr<File>>& files, bool ascending) {
    std::vector<DatedFile> dated;
    dated.reserve(files.size());
    for (const std::shared_ptr<File>& file : files) {
        dated.push_back({keyOf(*file, ascending), dated.size()});
    }
    return dated;
}

}  // namespace

std::vector<std::shared_ptr<File>> sortMaadi(const std::vector<std::shared_ptr<File>>& files,
                                             bool ascending) {
    std::vector<DatedFile> dated = datesOf(files, ascending);
    std::stable_sort(dated.begin(), dated.end(), [](const DatedFile& left, const DatedFile& right) {
        return left.key < right.key;
    });
    std::vector<std::shared_ptr<File>> sorted;
    sorted.reserve(files.size());
    for (const DatedFile& file : dated) {
        sorted.push_back(files[file.position]);
        sorted.back()->setIndex(static_cast<std::int64_t>(sorted.size()) - 1);
    }
    return sorted;
}

std::optional<SortCriterion> sortCriterionOf(int menuTag) {
    switch (menuTag) {
        case 0:
            return SortCriterion{"size", ResultTexts::sortBySize(), 1};
        case 1:
            return SortCriterion{"itemTitle", ResultTexts::sortByName(), 2};
        case 2:
            return SortCriterion{"CreatDate", ResultTexts::sortByCreatedDate(), 3};
        case 3:
            return SortCriterion{"ModDate", ResultTexts::sortByModifiedDate(), 4};
        case 4:
            return SortCriterion{"Dimension", ResultTexts::sortByDimension(), 5};
        default:
            return std::nullopt;
    }
}

}  // namespace tarvin
