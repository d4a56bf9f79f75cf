#include "platform/trash_fixture.h"

#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

constexpr Timestamp leapDay{std::chrono::sys_days{std::chrono::year{2024} / 2 / 29} +
                            std::chrono::hours(23)};

/// .trashinfo files of files in a Trash.
class StoredTrashInfo : public TrashFixture {
 protected:
    StoredTrashInfo() { place_ = *move(folder_.writeFile("a b", "bytes")); }

    [[nodiscard]] std::string infoFile(const std::string& name) const {
        return trash() + "/info/" + name + ".trashinfo";
    }
    void writeTrashInfo(const std::string& name, const std::string& text) const {
        std::ofstream(infoFile(name), std::ios::trunc) << text;
    }
    auto repair() { return mover_->repairTrashInfo(place_, folder_.pathOf("a b"), leapDay); }
    [[nodiscard]] std::string repaired() const {
        return "[Trash Info]\nPath=" + folder_.pathOf("a%20b") +
               "\nDeletionDate=2024-02-29T23:00:00\n";
    }

    TimeZone zone_{"UTC0"};
    TrashPlace place_;
};

TEST_F(StoredTrashInfo, IsWrittenIfMissing) {
    fs::remove(infoFile("a b"));
    EXPECT_FALSE(repair());
    EXPECT_EQ(trashInfo("a b"), repaired());
    struct stat status{};
    ASSERT_EQ(::stat(infoFile("a b").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
}

TEST_F(StoredTrashInfo, IsRewrittenIfIncomplete) {
    for (const char* text : {"", "[Trash Info]\n", "[Trash Info]\nPath=/a", "\0\0\0\0",
                             "[Trash Info]\nPath=/a\nDeletionDate=2026"}) {
        writeTrashInfo("a b", text);
        EXPECT_FALSE(repair()) << text;
        EXPECT_EQ(trashInfo("a b"), repaired()) << text;
    }
}

TEST_F(StoredTrashInfo, IsKeptIfComplete) {
    const std::string whole = "[Trash Info]\nPath=/elsewhere\nDeletionDate=2020-01-01T00:00:00\n";
    writeTrashInfo("a b", whole);
    EXPECT_FALSE(repair());
    EXPECT_EQ(trashInfo("a b"), whole);
}

TEST_F(StoredTrashInfo, LinkIsNotFollowed) {
    const std::string other = folder_.writeFile("other", "bytes");
    fs::remove(infoFile("a b"));
    fs::create_symlink(other, infoFile("a b"));
    const auto refusal = repair();
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->error.code, ELOOP);
    EXPECT_EQ(contentOf(other), "bytes");
}

TEST_F(StoredTrashInfo, UnreadableOneIsReportedAndKept) {
    for (const TrashCall call : {TrashCall::openFile, TrashCall::read}) {
        writeTrashInfo("a b", "");
        calls_.failNext(call, EIO);
        const auto refusal = repair();
        ASSERT_TRUE(refusal);
        EXPECT_EQ(refusal->error.code, EIO);
        EXPECT_TRUE(fs::exists(infoFile("a b")));
    }
}

TEST_F(StoredTrashInfo, UnusedOneOfAPathIsRemoved) {
    const auto text = [](const std::string& path) {
        return "[Trash Info]\nPath=" + path + "\nDeletionDate=2020-01-01T00:00:00\n";
    };
    writeTrashInfo("sought", text("/x/sought%20one"));
    writeTrashInfo("sought.2", text("/x/sought%20one"));
    writeTrashInfo("other", text("/x/other"));
    writeTrashInfo("sought one.3", "[Trash Info]\nPath=/x/sought%20one");
    std::ofstream(trash() + "/info/sought.txt") << text("/x/sought%20one");
    for (const char* name : {"sought one", "sought one.12", "sought one.x", "empty"}) {
        writeTrashInfo(name, "");
    }
    EXPECT_FALSE(mover_->removeUnusedTrashInfos(trash(), {"/y", "/x/sought one"}));
    EXPECT_FALSE(fs::exists(infoFile("sought one")));
    EXPECT_FALSE(fs::exists(infoFile("sought one.12")));
    EXPECT_TRUE(fs::exists(infoFile("sought one.x")));
    EXPECT_TRUE(fs::exists(infoFile("empty")));
    EXPECT_FALSE(fs::exists(infoFile("sought")));
    EXPECT_FALSE(fs::exists(infoFile("sought.2")));
    EXPECT_TRUE(fs::exists(infoFile("other")));
    EXPECT_TRUE(fs::exists(infoFile("sought one.3")));
    EXPECT_TRUE(fs::exists(trash() + "/info/sought.txt"));
}

TEST_F(StoredTrashInfo, UsedOneOfAPathIsKept) {
    EXPECT_FALSE(mover_->removeUnusedTrashInfos(trash(), {folder_.pathOf("a b")}));
    EXPECT_NE(trashInfo("a b"), "");
}

TEST_F(StoredTrashInfo, MissingTrashIsRefused) {
    const auto refusal = mover_->removeUnusedTrashInfos(folder_.pathOf("no/Trash"), {"/a"});
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, TrashRefusalKind::gone);
}

TEST_F(StoredTrashInfo, IsFlushedOnceWithItsFile) {
    EXPECT_FALSE(mover_->flush());
    EXPECT_EQ(calls_.made(TrashCall::flush), 1U);
    EXPECT_FALSE(mover_->flush());
    EXPECT_EQ(calls_.made(TrashCall::flush), 1U);
    EXPECT_TRUE(move(folder_.writeFile("c", "bytes")).ok());
    calls_.failNext(TrashCall::flush, EIO);
    const auto refusal = mover_->flush();
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->error.code, EIO);
    EXPECT_FALSE(mover_->flush());
    EXPECT_EQ(calls_.made(TrashCall::flush), 3U);
    EXPECT_FALSE(repair());
    EXPECT_FALSE(mover_->flush());
    EXPECT_EQ(calls_.made(TrashCall::flush), 4U);
}

TEST_F(StoredTrashInfo, IsFlushedAfterARestore) {
    EXPECT_FALSE(mover_->flush());
    EXPECT_FALSE(putBack(place_, folder_.pathOf("a b")));
    EXPECT_FALSE(mover_->flush());
    EXPECT_EQ(calls_.made(TrashCall::flush), 2U);
}

TEST_F(StoredTrashInfo, IsFlushedBeforeItsTrashIsClosed) {
    letASecondPass();
    fs::rename(trash(), trash() + ".away");
    calls_.failNext(TrashCall::flush, EIO);
    EXPECT_TRUE(move(folder_.writeFile("c", "bytes")).ok());
    EXPECT_EQ(calls_.made(TrashCall::flush), 1U);
    const auto refusal = mover_->flush();
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->error.code, EIO);
    EXPECT_FALSE(mover_->flush());
}

TEST_F(StoredTrashInfo, IsWrittenAgainIfItsFileArrivesMeanwhile) {
    const std::string text = trashInfo("a b");
    fs::rename(trashed("a b"), folder_.pathOf("a b"));
    calls_.before(TrashCall::unlink, [this] { fs::rename(folder_.pathOf("a b"), trashed("a b")); });
    EXPECT_FALSE(mover_->removeUnusedTrashInfos(trash(), {folder_.pathOf("a b")}));
    EXPECT_EQ(trashInfo("a b"), text);
}

TEST_F(StoredTrashInfo, OnAVolumeHasARelativePath) {
    if (hasVolume()) {
        const std::string top = fs::path(volume_->pathOf("x")).parent_path();
        fs::create_directory(volume_->pathOf("sub"));
        std::ofstream(volume_->pathOf("sub/a")) << "bytes";
        const auto moved = move(volume_->pathOf("sub/a"));
        ASSERT_TRUE(moved.ok()) << moved.error().text;
        const std::string path = moved->trash + "/info/a.trashinfo";
        const std::string expected = "[Trash Info]\nPath=sub/a\nDeletionDate=2024-02-29T23:00:00\n";
        fs::remove(path);
        // As after a restart: the Trash is opened by its path.
        const auto later = newMover();
        EXPECT_FALSE(later->repairTrashInfo(*moved, volume_->pathOf("sub/a"), leapDay));
        EXPECT_EQ(contentOf(path), expected);
        fs::remove(moved->trash + "/files/a");
        EXPECT_FALSE(later->removeUnusedTrashInfos(moved->trash, {volume_->pathOf("sub/a")}));
        EXPECT_FALSE(fs::exists(path));
        EXPECT_EQ(fs::path(moved->trash).parent_path(), top);
    }
}

TEST_F(StoredTrashInfo, InASharedTrashHasARelativePath) {
    if (hasVolume()) {
        fs::create_directory(volume_->pathOf(".Trash"));
        fs::permissions(volume_->pathOf(".Trash"), fs::perms(01777));
        std::ofstream(volume_->pathOf("a")) << "bytes";
        const auto moved = move(volume_->pathOf("a"));
        ASSERT_TRUE(moved.ok()) << moved.error().text;
        ASSERT_EQ(moved->trash, volume_->pathOf(".Trash/" + user()));
        fs::remove(moved->trash + "/info/a.trashinfo");
        EXPECT_FALSE(newMover()->repairTrashInfo(*moved, volume_->pathOf("a"), leapDay));
        EXPECT_EQ(contentOf(moved->trash + "/info/a.trashinfo"),
                  "[Trash Info]\nPath=a\nDeletionDate=2024-02-29T23:00:00\n");
    }
}

}  // namespace
}  // namespace tarvin
