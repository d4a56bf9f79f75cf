#include "model/file.h"

#include "model/file_store.h"
#include "model/result_tree.h"
#include "model/set.h"
#include "support/recording_trash.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using std::chrono::nanoseconds;

constexpr Timestamp modified{nanoseconds{1'700'000'000'123'456'789}};
constexpr Timestamp created{nanoseconds{-5}};

TEST(File, KeepsItsCollectedMetadata) {
    const auto file = FileStore::standalone("/home/ann/a.jpg", 4096, modified, created);
    EXPECT_EQ(file->fileName(), "a.jpg");
    EXPECT_EQ(file->filePath(), "/home/ann/a.jpg");
    EXPECT_EQ(file->directory()->path(), "/home/ann");
    EXPECT_EQ(file->fileSize(), 4096u);
    EXPECT_EQ(file->fileModificationDate(), std::optional(modified));
    EXPECT_EQ(file->fileCreationDate(), std::optional(created));
}

TEST(File, StartsUnmarkedAtPositionZero) {
    const auto file = FileStore::standalone("/a", 1);
    EXPECT_EQ(file->state(), CheckState::off);
    EXPECT_EQ(file->index(), 0);
}

TEST(File, KeepsMarkAndPosition) {
    const auto file = FileStore::standalone("/a", 1);
    file->setState(CheckState::on);
    file->setIndex(-7);
    EXPECT_EQ(file->state(), CheckState::on);
    EXPECT_EQ(file->index(), -7);
}

TEST(File, DatesMayBeMissing) {
    const auto file = FileStore::standalone("/a", 1);
    EXPECT_EQ(file->fileModificationDate(), std::nullopt);
    EXPECT_EQ(file->fileCreationDate(), std::nullopt);
}

TEST(File, DistinguishesTheEpochFromAMissingDate) {
    const auto file = FileStore::standalone("/a", 1, Timestamp{nanoseconds{0}});
    EXPECT_EQ(file->fileModificationDate(), std::optional(Timestamp{nanoseconds{0}}));
}

TEST(File, KeepsDatesAtBothEndsOfTheRange) {
    const auto file = FileStore::standalone("/a", 1, Timestamp::min(), Timestamp::max());
    const auto earliest = nanoseconds{std::numeric_limits<std::int64_t>::min() + 1};
    EXPECT_EQ(file->fileModificationDate(), std::optional(Timestamp{earliest}));
    EXPECT_EQ(file->fileCreationDate(), std::optional(Timestamp::max()));
}

TEST(File, AppendsItsPathToTheBuffer) {
    const auto file = FileStore::standalone("/home/ann/a.jpg", 1);
    std::string buffer = "move ";
    file->appendFilePath(buffer);
    EXPECT_EQ(buffer, "move /home/ann/a.jpg");
}

bool isRemoved(const File& file, RecordingTrash& trash) {
    const Set set;
    return file.removeFile(*trash.begin(set));
}

TEST(File, GoesToTheTrashWhenItExistsAndTheMoveSucceeds) {
    RecordingTrash trash;
    trash.addExisting("/home/ann/a.jpg");
    const auto file = FileStore::standalone("/home/ann/a.jpg", 1);
    EXPECT_TRUE(isRemoved(*file, trash));
    EXPECT_EQ(trash.moves(), (std::vector<std::string>{"/home/ann/a.jpg"}));
}

TEST(File, IsNotMovedIfItNoLongerExists) {
    RecordingTrash trash;
    const auto file = FileStore::standalone("/home/ann/a.jpg", 1);
    EXPECT_FALSE(isRemoved(*file, trash));
    EXPECT_TRUE(trash.attempts().empty());
}

TEST(File, ReportsARefusedMove) {
    RecordingTrash trash;
    trash.addExisting("/a");
    trash.refuse("/a");
    const auto file = FileStore::standalone("/a", 1);
    EXPECT_FALSE(isRemoved(*file, trash));
    EXPECT_EQ(trash.attempts(), (std::vector<std::string>{"/a"}));
    EXPECT_TRUE(trash.moves().empty());
}

TEST(File, KeepsItsMarkWhenItIsRemoved) {
    RecordingTrash trash;
    trash.addExisting("/a");
    const auto file = FileStore::standalone("/a", 1);
    file->setState(CheckState::on);
    EXPECT_TRUE(isRemoved(*file, trash));
    EXPECT_EQ(file->state(), CheckState::on);
}

}  // namespace
}  // namespace tarvin
