#include "model/each_set.h"

#include "model/file_store.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Sets = std::vector<std::shared_ptr<Set>>;

/// Sets of 0 to 5 files.
Sets setsOf(std::size_t count) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory* const folder = store->addRoot("/r");
    Sets sets;
    for (std::size_t number = 0; number < count; ++number) {
        sets.push_back(std::make_shared<Set>());
        for (std::size_t file = 0; file < number % 6; ++file) {
            sets.back()->addFiles(store->share(
                store->addFile(folder, std::to_string(file), 1, std::nullopt, std::nullopt)));
        }
    }
    return sets;
}

/// The positions of the visited sets; the visit of the set at `last` returns false.
std::vector<std::size_t> visited(const Sets& sets, std::size_t last, bool& isWhole) {
    std::vector<const Set*> seen;
    isWhole = forEachSet(sets, [&](const Set& set) {
        seen.push_back(&set);
        return seen.size() != last + 1;
    });
    std::vector<std::size_t> positions;
    for (const Set* set : seen) {
        for (std::size_t position = 0; position < sets.size(); ++position) {
            if (sets[position].get() == set) {
                positions.push_back(position);
            }
        }
    }
    return positions;
}

std::vector<std::size_t> firstPositions(std::size_t count) {
    std::vector<std::size_t> positions(count);
    std::iota(positions.begin(), positions.end(), std::size_t{0});
    return positions;
}

TEST(EachSet, IsVisitedOnceInOrderWhateverTheirNumber) {
    for (const std::size_t count : {0U, 1U, 7U, 8U, 9U, 16U, 17U, 24U, 25U, 26U, 100U}) {
        bool isWhole = false;
        EXPECT_EQ(visited(setsOf(count), 1000, isWhole), firstPositions(count)) << count << " sets";
        EXPECT_TRUE(isWhole) << count << " sets";
    }
}

TEST(EachSet, IsNotVisitedAfterTheVisitThatEndsTheWalk) {
    for (const std::size_t last : {0U, 3U, 30U, 99U}) {
        bool isWhole = true;
        EXPECT_EQ(visited(setsOf(100), last, isWhole), firstPositions(last + 1)) << last;
        EXPECT_FALSE(isWhole) << last;
    }
}

TEST(EachSet, CanBeChangedByItsVisit) {
    const Sets sets = setsOf(100);
    EXPECT_TRUE(forEachSet(sets, [](Set& set) {
        set.markAllFiles();
        return true;
    }));
    EXPECT_EQ(sets[0]->totalFilesSelectedInSet(), 0U);
    EXPECT_EQ(sets[5]->totalFilesSelectedInSet(), 4U);
    EXPECT_EQ(sets[99]->totalFilesSelectedInSet(), 2U);
}

}  // namespace
}  // namespace tarvin
