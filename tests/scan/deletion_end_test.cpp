#include "scan/deletion_end.h"

#include "store/data_file.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>

namespace tarvin {
namespace {

TEST(CleanHistoryAtStart, IsShownOnlyOnceSomethingWasMoved) {
    EXPECT_EQ(cleanHistoryAtStart({0, 0}), std::nullopt);
    EXPECT_EQ(cleanHistoryAtStart({0, 5}), std::nullopt);
    EXPECT_EQ(cleanHistoryAtStart({3, 2'000'000}), "Files cleaned so far: 3 (2.00 MB)");
    EXPECT_EQ(cleanHistoryAtStart({1, 0}), "Files cleaned so far: 1 (0.00 KB)");
}

/// Totals of two files of a million bytes each, kept in a file as the programs keep them.
class DeletionEndTest : public ::testing::Test {
 protected:
    void SetUp() override { ASSERT_FALSE(data_.addDeleted(2, 2'000'000)); }

    DeletionEnd end(const RemovalResult& moved) {
        return endDeletion(moved, [this](std::uint64_t count, std::uint64_t size) {
            ++calls_;
            error_ = data_.addDeleted(count, size);
            return LifetimeTotals{data_.alreadyDeletedCount(), data_.alreadyDeletedSize()};
        });
    }

    [[nodiscard]] std::int64_t storedCount() const {
        DataFile again(folder_.path());
        EXPECT_FALSE(again.loadDataFile());
        return again.alreadyDeletedCount();
    }

    TemporaryFolder folder_;
    DataFile data_{folder_.path()};
    int calls_ = 0;
    std::optional<StoreError> error_;
};

TEST_F(DeletionEndTest, AddsTheRunToTheTotalsAndTellsOfBoth) {
    const DeletionEnd end = this->end({3, 3'000'000});
    EXPECT_EQ(end.cleanHistory, "Files cleaned so far: 5 (5.00 MB)");
    EXPECT_EQ(end.duplicatesCleaned, "Duplicates Cleaned: 3");
    EXPECT_EQ(end.spaceRegained, "Space Regained: 3.00 MB ");
    EXPECT_EQ(calls_, 1);
    EXPECT_EQ(storedCount(), 5);
}

TEST_F(DeletionEndTest, OfARunThatMovedNothingWritesTheTotalsAsTheyWere) {
    ASSERT_TRUE(std::filesystem::remove(data_.dataPath()));
    const DeletionEnd end = this->end({});
    EXPECT_EQ(end.cleanHistory, "Files cleaned so far: 2 (2.00 MB)");
    EXPECT_EQ(end.duplicatesCleaned, "Duplicates Cleaned: 0");
    EXPECT_EQ(end.spaceRegained, "Space Regained: 0.00 KB ");
    EXPECT_EQ(calls_, 1);
    EXPECT_EQ(storedCount(), 2);
}

TEST_F(DeletionEndTest, TellsTheTotalsInMemoryThoughTheyCannotBeWritten) {
    std::filesystem::remove_all(folder_.path());
    std::ofstream(folder_.path()) << "no folder";
    const DeletionEnd end = this->end({1, 1'000'000});
    EXPECT_TRUE(error_);
    EXPECT_EQ(end.cleanHistory, "Files cleaned so far: 3 (3.00 MB)");
    EXPECT_EQ(end.duplicatesCleaned, "Duplicates Cleaned: 1");
}

}  // namespace
}  // namespace tarvin
