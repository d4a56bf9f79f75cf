#include "controller/sort_files.h"

#include "model/file_store.h"
#include "model/set.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using Names = std::vector<std::string>;

class SortMaadi : public ::testing::Test {
 protected:
    void add(const std::string& name, std::optional<std::int64_t> created) {
        set_.addFiles(FileStore::standalone(
            '/' + name, 1, std::nullopt,
            created ? std::optional(Timestamp(std::chrono::seconds(*created))) : std::nullopt));
    }

    static Names namesOf(const std::vector<std::shared_ptr<File>>& files) {
        Names names;
        for (const std::shared_ptr<File>& file : files) {
            names.emplace_back(file->fileName());
        }
        return names;
    }

    [[nodiscard]] std::vector<std::int64_t> indexes() const {
        std::vector<std::int64_t> numbers;
        for (const std::shared_ptr<File>& file : set_.files()) {
            numbers.push_back(file->index());
        }
        return numbers;
    }

    Set set_;
};

TEST_F(SortMaadi, GoesByTheCreationDateUpOrDown) {
    add("middle", 20);
    add("young", 30);
    add("old", -10);
    EXPECT_EQ(namesOf(sortMaadi(set_.files(), true)), (Names{"old", "middle", "young"}));
    EXPECT_EQ(indexes(), (std::vector<std::int64_t>{1, 2, 0}));
    EXPECT_EQ(namesOf(sortMaadi(set_.files(), false)), (Names{"young", "middle", "old"}));
    EXPECT_EQ(indexes(), (std::vector<std::int64_t>{1, 0, 2}));
}

TEST_F(SortMaadi, LeavesTheOrderOfTheSetAlone) {
    add("b", 2);
    add("a", 1);
    static_cast<void>(sortMaadi(set_.files(), true));
    EXPECT_EQ(namesOf(set_.files()), (Names{"b", "a"}));
}

TEST_F(SortMaadi, KeepsTheOrderOfFilesOfOneDate) {
    add("1", 5);
    add("2", 5);
    add("3", 4);
    add("4", 5);
    EXPECT_EQ(namesOf(sortMaadi(set_.files(), true)), (Names{"3", "1", "2", "4"}));
    EXPECT_EQ(namesOf(sortMaadi(set_.files(), false)), (Names{"1", "2", "4", "3"}));
}

TEST_F(SortMaadi, SortsFilesWithoutADateAsTheOldest) {
    add("dated", 5);
    add("none", std::nullopt);
    EXPECT_EQ(namesOf(sortMaadi(set_.files(), true)), (Names{"none", "dated"}));
    EXPECT_EQ(namesOf(sortMaadi(set_.files(), false)), (Names{"dated", "none"}));
}

TEST_F(SortMaadi, ReturnsTheSameFiles) {
    add("a", 1);
    EXPECT_EQ(sortMaadi(set_.files(), true), set_.files());
    EXPECT_TRUE(sortMaadi({}, true).empty());
}

TEST(SortMaadiOfManyFiles, IsQuick) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory* const folder = store->addRoot("/large");
    Set set;
    std::uint64_t chance = 1;
    for (int file = 0; file < 500'000; ++file) {
        chance = chance * 6364136223846793005U + 1442695040888963407U;
        const Timestamp created(std::chrono::nanoseconds(static_cast<std::int64_t>(chance >> 2U)));
        set.addFiles(store->share(store->addFile(folder, "file", 1, std::nullopt, created)));
    }
    // CPU time, independent of the load of the machine.
    const std::clock_t begin = std::clock();
    const std::vector<std::shared_ptr<File>> sorted = sortMaadi(set.files(), true);
    const std::clock_t took = (std::clock() - begin) / (CLOCKS_PER_SEC / 1000);
    RecordProperty("milliseconds", static_cast<int>(took));
#ifdef TARVIN_SANITIZED
    EXPECT_LT(took, 10'000);
#else
    EXPECT_LT(took, 300);
#endif
    ASSERT_EQ(sorted.size(), 500'000U);
    EXPECT_EQ(sorted.back()->index(), 499'999);
    EXPECT_LT(sorted.front()->fileCreationDate(), sorted.back()->fileCreationDate());
}

TEST(SortCriterion, FollowsFromTheMenusTag) {
    const auto of = [](int tag) {
        const std::optional<SortCriterion> criterion = sortCriterionOf(tag);
        return std::string(criterion->sorting) + ", " + criterion->toolTip.toStdString() + ", " +
               std::to_string(criterion->popupTag);
    };
    EXPECT_EQ(of(0), "size, Sort by size, 1");
    EXPECT_EQ(of(1), "itemTitle, Sort by name, 2");
    EXPECT_EQ(of(2), "CreatDate, Sort by created date, 3");
    EXPECT_EQ(of(3), "ModDate, Sort by modified date, 4");
    EXPECT_EQ(of(4), "Dimension, Sort by dimension, 5");
    EXPECT_FALSE(sortCriterionOf(5).has_value());
    EXPECT_FALSE(sortCriterionOf(-1).has_value());
    EXPECT_EQ(effectiveSorting, "fileCreationDate");
}

}  // namespace
}  // namespace tarvin
