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
class StoredNote : public TrashFixture {
 protected:
    StoredNote() { place_ = *move(folder_.writeFile("a b", "bytes")); }

    [[nodiscard]] std::string notePath(const std::string& name) const {
        return trash() + "/info/" + name + ".trashinfo";
    }
    void writeNote(const std::string& name, const std::string& text) const {
        std::ofstream(notePath(name), std::ios::trunc) << text;
    }
    auto mend() { return mover_->mendNote(place_, folder_.pathOf("a b"), leapDay); }
    [[nodiscard]] std::string mended() const {
        return "[Trash Info]\nPath=" + folder_.pathOf("a%20b") +
               "\nDeletionDate=2024-02-29T23:00:00\n";
    }

    TimeZone zone_{"UTC0"};
    TrashPlace place_;
};

TEST_F(StoredNote, IsWrittenIfMissing) {
    fs::remove(notePath("a b"));
    EXPECT_FALSE(mend());
    EXPECT_EQ(note("a b"), mended());
    struct stat status{};
    ASSERT_EQ(::stat(notePath("a b").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
}

TEST_F(StoredNote, IsRewrittenIfIncomplete) {
    for (const char* text : {"", "[Trash Info]\n", "[Trash Info]\nPath=/a", "\0\0\0\0",
                             "[Trash Info]\nPath=/a\nDeletionDate=2026"}) {
        writeNote("a b", text);
        EXPECT_FALSE(mend()) << text;
        EXPECT_EQ(note("a b"), mended()) << text;
    }
}

TEST_F(StoredNote, IsKeptIfComplete) {
    const std::string whole = "[Trash Info]\nPath=/elsewhere\nDeletionDate=2020-01-01T00:00:00\n";
    writeNote("a b", whole);
    EXPECT_FALSE(mend());
    EXPECT_EQ(note("a b"), whole);
}

TEST_F(StoredNote, LinkIsNotFollowed) {
    const std::string other = folder_.writeFile("other", "bytes");
    fs::remove(notePath("a b"));
    fs::create_symlink(other, notePath("a b"));
    const auto refusal = mend();
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->error.code, ELOOP);
    EXPECT_EQ(contentOf(other), "bytes");
}

TEST_F(StoredNote, UnreadableOneIsReportedAndKept) {
    for (const TrashCall call : {TrashCall::openFile, TrashCall::read}) {
        writeNote("a b", "");
        calls_.failNext(call, EIO);
        const auto refusal = mend();
        ASSERT_TRUE(refusal);
        EXPECT_EQ(refusal->error.code, EIO);
        EXPECT_TRUE(fs::exists(notePath("a b")));
    }
}

TEST_F(StoredNote, UnusedOneOfAPathIsRemoved) {
    const auto text = [](const std::string& path) {
        return "[Trash Info]\nPath=" + path + "\nDeletionDate=2020-01-01T00:00:00\n";
    };
    writeNote("sought", text("/x/sought%20one"));
    writeNote("sought.2", text("/x/sought%20one"));
    writeNote("other", text("/x/other"));
    writeNote("sought one.3", "[Trash Info]\nPath=/x/sought%20one");
    std::ofstream(trash() + "/info/sought.txt") << text("/x/sought%20one");
    for (const char* name : {"sought one", "sought one.12", "sought one.x", "empty"}) {
        writeNote(name, "");
    }
    EXPECT_FALSE(mover_->removeUnusedNotes(trash(), {"/y", "/x/sought one"}));
    EXPECT_FALSE(fs::exists(notePath("sought one")));
    EXPECT_FALSE(fs::exists(notePath("sought one.12")));
    EXPECT_TRUE(fs::exists(notePath("sought one.x")));
    EXPECT_TRUE(fs::exists(notePath("empty")));
    EXPECT_FALSE(fs::exists(notePath("sought")));
    EXPECT_FALSE(fs::exists(notePath("sought.2")));
    EXPECT_TRUE(fs::exists(notePath("other")));
    EXPECT_TRUE(fs::exists(notePath("sought one.3")));
    EXPECT_TRUE(fs::exists(trash() + "/info/sought.txt"));
}

TEST_F(StoredNote, UsedOneOfAPathIsKept) {
    EXPECT_FALSE(mover_->removeUnusedNotes(trash(), {folder_.pathOf("a b")}));
    EXPECT_NE(note("a b"), "");
}

TEST_F(StoredNote, MissingTrashIsRefused) {
    const auto refusal = mover_->removeUnusedNotes(folder_.pathOf("no/Trash"), {"/a"});
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, TrashRefusalKind::gone);
}

TEST_F(StoredNote, IsFlushedOnceWithItsFile) {
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
    EXPECT_FALSE(mend());
    EXPECT_FALSE(mover_->flush());
    EXPECT_EQ(calls_.made(TrashCall::flush), 4U);
}

TEST_F(StoredNote, IsFlushedAfterARestore) {
    EXPECT_FALSE(mover_->flush());
    EXPECT_FALSE(putBack(place_, folder_.pathOf("a b")));
    EXPECT_FALSE(mover_->flush());
    EXPECT_EQ(calls_.made(TrashCall::flush), 2U);
}

TEST_F(StoredNote, IsFlushedBeforeItsTrashIsClosed) {
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

TEST_F(StoredNote, IsWrittenAgainIfItsFileArrivesMeanwhile) {
    const std::string text = note("a b");
    fs::rename(trashed("a b"), folder_.pathOf("a b"));
    calls_.before(TrashCall::unlink, [this] { fs::rename(folder_.pathOf("a b"), trashed("a b")); });
    EXPECT_FALSE(mover_->removeUnusedNotes(trash(), {folder_.pathOf("a b")}));
    EXPECT_EQ(note("a b"), text);
}

TEST_F(StoredNote, OnAVolumeHasARelativePath) {
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
        EXPECT_FALSE(later->mendNote(*moved, volume_->pathOf("sub/a"), leapDay));
        EXPECT_EQ(contentOf(path), expected);
        fs::remove(moved->trash + "/files/a");
        EXPECT_FALSE(later->removeUnusedNotes(moved->trash, {volume_->pathOf("sub/a")}));
        EXPECT_FALSE(fs::exists(path));
        EXPECT_EQ(fs::path(moved->trash).parent_path(), top);
    }
}

TEST_F(StoredNote, InASharedTrashHasARelativePath) {
    if (hasVolume()) {
        fs::create_directory(volume_->pathOf(".Trash"));
        fs::permissions(volume_->pathOf(".Trash"), fs::perms(01777));
        std::ofstream(volume_->pathOf("a")) << "bytes";
        const auto moved = move(volume_->pathOf("a"));
        ASSERT_TRUE(moved.ok()) << moved.error().text;
        ASSERT_EQ(moved->trash, volume_->pathOf(".Trash/" + user()));
        fs::remove(moved->trash + "/info/a.trashinfo");
        EXPECT_FALSE(newMover()->mendNote(*moved, volume_->pathOf("a"), leapDay));
        EXPECT_EQ(contentOf(moved->trash + "/info/a.trashinfo"),
                  "[Trash Info]\nPath=a\nDeletionDate=2024-02-29T23:00:00\n");
    }
}

}  // namespace
}  // namespace tarvin
