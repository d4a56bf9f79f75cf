#include "platform/trash_move.h"

#include "platform/trash_fixture.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <system_error>
#include <thread>
#include <tuple>
#include <vector>

namespace tarvin {
namespace {

using HomeTrash = TrashFixture;

unsigned modeOf(const std::string& path) {
    struct stat status{};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777U;
}

TEST_F(HomeTrash, MovesAFileWithItsTrashinfo) {
    const TimeZone zone("EET-2");
    clock_.set(std::chrono::sys_days(std::chrono::year(2024) / 2 / 29) + std::chrono::hours(22) +
               std::chrono::minutes(5) + std::chrono::seconds(9));
    const std::string path = folder_.writeFile("a b/c%\n\xff.txt", "bytes");
    const auto moved = move(path);
    ASSERT_TRUE(moved.ok());
    EXPECT_EQ(*moved, (TrashPlace{trash(), "c%\n\xff.txt"}));
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(contentOf(trashed("c%\n\xff.txt")), "bytes");
    EXPECT_EQ(trashInfo("c%\n\xff.txt"), "[Trash Info]\nPath=" + folder_.path() +
                                             "/a%20b/c%25%0A%FF.txt\n"
                                             "DeletionDate=2024-03-01T00:05:09\n");
}

TEST_F(HomeTrash, DatesEachTrashinfo) {
    const TimeZone zone("UTC0");
    ASSERT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
    clock_.advance(std::chrono::seconds(86'400));
    ASSERT_TRUE(move(folder_.writeFile("b", "bytes")).ok());
    EXPECT_NE(trashInfo("a").find("DeletionDate=2026-01-31T00:00:00\n"), std::string::npos);
    EXPECT_NE(trashInfo("b").find("DeletionDate=2026-02-01T00:00:00\n"), std::string::npos);
}

TEST_F(HomeTrash, IsCreatedForTheUserAlone) {
    const mode_t before = ::umask(0);
    EXPECT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
    ::umask(before);
    for (const std::string made : {"home", "home/data", "home/data/Trash", "home/data/Trash/files",
                                   "home/data/Trash/info"}) {
        EXPECT_EQ(modeOf(folder_.pathOf(made)), 0700U) << made;
    }
    EXPECT_EQ(modeOf(trash() + "/info/a.trashinfo"), 0600U);
}

TEST_F(HomeTrash, MovesALinkAndNotItsTarget) {
    folder_.writeFile("target", "bytes");
    const std::string path = folder_.makeLink("link", "target");
    ASSERT_TRUE(move(path).ok());
    EXPECT_EQ(contentOf(folder_.pathOf("target")), "bytes");
    EXPECT_TRUE(std::filesystem::is_symlink(trashed("link")));
    EXPECT_EQ(entriesIn(trash() + "/files"), 1U);
}

TEST_F(HomeTrash, NumbersFilesWithOneName) {
    ASSERT_TRUE(move(folder_.writeFile("one/a.txt", "one")).ok());
    ASSERT_TRUE(move(folder_.writeFile("two/a.txt", "two")).ok());
    EXPECT_EQ(contentOf(trashed("a.txt")), "one");
    EXPECT_EQ(contentOf(trashed("a.2.txt")), "two");
    EXPECT_NE(trashInfo("a.2.txt").find("/two/a.txt\n"), std::string::npos);
}

TEST_F(HomeTrash, KeepsAFileWithoutTrashinfo) {
    expectFileWithoutTrashInfoLeftAlone();
}

TEST_F(HomeTrash, KeepsATrashinfoWithoutFile) {
    std::filesystem::create_directories(trash() + "/info");
    std::ofstream(trash() + "/info/a.txt.trashinfo") << "orphan";
    const auto moved = move(folder_.writeFile("a.txt", "bytes"));
    ASSERT_TRUE(moved.ok());
    EXPECT_EQ(moved->name, "a.2.txt");
    EXPECT_EQ(trashInfo("a.txt"), "orphan");
}

TEST_F(HomeTrash, DoesNotWriteThroughALinkedTrashinfo) {
    std::filesystem::create_directories(trash() + "/info");
    std::filesystem::create_symlink(folder_.pathOf("elsewhere"), trash() + "/info/a.trashinfo");
    const auto moved = move(folder_.writeFile("a", "bytes"));
    ASSERT_TRUE(moved.ok());
    EXPECT_EQ(moved->name, "a.2");
    EXPECT_FALSE(std::filesystem::exists(folder_.pathOf("elsewhere")));
}

TEST_F(HomeTrash, ShortensLongNamesForTheTrashinfo) {
    for (std::size_t length = 230; length <= 255; ++length) {
        for (const std::string unit : {"a", "\xC3\xA4", "\xE2\x82\xAC", "\xFF", "%", "\n"}) {
            std::string name;
            while (name.size() + unit.size() + 4 <= length) {
                name += unit;
            }
            name += std::string(length - 4 - name.size(), 'x') + ".jpg";
            ASSERT_EQ(name.size(), length);
            const std::string path = folder_.writeFile(name, "bytes");
            const auto moved = move(path);
            ASSERT_TRUE(moved.ok()) << moved.error().text << length;
            EXPECT_TRUE(moved->name.ends_with(".jpg"));
            EXPECT_EQ(moved->name.size() < 243, length < 243) << length;
            EXPECT_EQ(contentOf(trashed(moved->name)), "bytes");
            EXPECT_TRUE(trashInfo(moved->name).ends_with("DeletionDate=2026-01-31T00:00:00\n"));
            EXPECT_FALSE(putBack(*moved, path)) << length;
            EXPECT_EQ(contentOf(path), "bytes");
            std::filesystem::remove(path);
        }
    }
    EXPECT_EQ(entriesIn(trash() + "/info"), 0U);
}

TEST_F(HomeTrash, ShortensNamesToTheLimitOfTheFileSystem) {
    calls_.limitNames(143);
    const auto moved = move(folder_.writeFile(std::string(140, 'a') + ".txt", "bytes"));
    ASSERT_TRUE(moved.ok());
    EXPECT_EQ(moved->name, std::string(129, 'a') + ".txt");
}

TEST_F(HomeTrash, MovesNamesOfPeriods) {
    for (const std::string name : {"...", "....", ".a", "a.", "...a"}) {
        for (const std::string folder : {"one/", "two/"}) {
            const auto moved = move(folder_.writeFile(folder + name, "bytes"));
            ASSERT_TRUE(moved.ok()) << name;
            EXPECT_EQ(moved->name, folder == "one/" ? name : name + ".2");
        }
    }
}

/// In memory if possible: ten thousand moves on a disk take half a minute.
std::filesystem::path memoryFolder() {
    std::error_code missing;
    return std::filesystem::is_directory("/dev/shm", missing)
               ? std::filesystem::path("/dev/shm")
               : std::filesystem::temp_directory_path();
}

class ManyFilesOfOneName : public TrashFixture {
 protected:
    ManyFilesOfOneName() : TrashFixture(memoryFolder()) {}
};

/// Moves 10,000 files named "a.txt", created one after the other.
void moveManyOfOneName(const std::function<Result<TrashPlace, TrashRefusal>(std::string)>& move,
                       const TemporaryFolder& folder) {
    for (int each = 0; each < 10'000; ++each) {
        const auto moved = move(folder.writeFile("a.txt", ""));
        ASSERT_TRUE(moved.ok()) << moved.error().text;
    }
}

TEST_F(ManyFilesOfOneName, NeedOneTryEach) {
    moveManyOfOneName([this](const std::string& path) { return move(path); }, folder_);
    EXPECT_EQ(entriesIn(trash() + "/files"), 10'000U);
    EXPECT_EQ(calls_.made(TrashCall::createFile), 10'001U);
}

TEST_F(ManyFilesOfOneName, FromEarlierNeedFewTries) {
    moveManyOfOneName([this](const std::string& path) { return move(path); }, folder_);
    mover_ = newMover();
    const std::size_t before = calls_.made(TrashCall::createFile);
    moveManyOfOneName([this](const std::string& path) { return move(path); }, folder_);
    EXPECT_EQ(entriesIn(trash() + "/files"), 20'000U);
    EXPECT_LE(calls_.made(TrashCall::createFile) - before, 10'015U);
}

TEST_F(HomeTrash, GivesUpAfterFortyNames) {
    calls_.fail(TrashCall::createFile, EEXIST);
    const TrashRefusal refusal = expectRefused(folder_.writeFile("a", "bytes"));
    EXPECT_EQ(refusal.kind, TrashRefusalKind::noName);
    EXPECT_EQ(refusal.text, "there is no free name in the Trash");
    EXPECT_EQ(calls_.made(TrashCall::createFile), 40U);
}

TEST_F(HomeTrash, TwoMoversCanMoveAtOnce) {
    const TemporaryFolder other;
    const auto work = [](const TemporaryFolder& folder, TrashMover& mover) {
        const OpenFolder open = openedFolder(folder.path());
        for (int each = 0; each < 500; ++each) {
            folder.writeFile("a.txt", "bytes");
            ASSERT_TRUE(mover.move(open, "a.txt").ok());
        }
    };
    // Separate objects with one Trash.
    const TrashUser user{trash(), static_cast<std::uint32_t>(::geteuid())};
    const auto first = makeTrashMover(user);
    const auto second = makeTrashMover(user);
    std::thread thread([&] { work(other, *second); });
    work(folder_, *first);
    thread.join();
    EXPECT_EQ(entriesIn(trash() + "/files"), 1'000U);
    EXPECT_EQ(entriesIn(trash() + "/info"), 1'000U);
}

TEST_F(HomeTrash, ReportsAMissingFile) {
    folder_.makeFolder("empty");
    const auto moved = move(folder_.pathOf("empty/a"));
    ASSERT_FALSE(moved.ok());
    EXPECT_EQ(moved.error().kind, TrashRefusalKind::gone);
    EXPECT_EQ(entriesIn(trash() + "/info"), 0U);
}

TEST_F(HomeTrash, RecordsTheRealPathOfTheFolder) {
    folder_.writeFile("one/a", "bytes");
    for (const std::string& path : {std::string("one"), folder_.pathOf("one/../one")}) {
        folder_.writeFile("one/a", "bytes");
        const auto moved = mover_->move(openedFolder(folder_.pathOf("one"), path), "a");
        ASSERT_TRUE(moved.ok());
        EXPECT_NE(trashInfo(moved->name).find("Path=" + folder_.pathOf("one/a\n")),
                  std::string::npos);
    }
}

TEST_F(HomeTrash, IsRefusedWithoutAHome) {
    const std::string path = folder_.writeFile("a", "bytes");
    mover_ = makeTrashMover({std::nullopt, 0}, {calls_, clock_, mountTable_});
    const TrashRefusal refusal = expectRefused(path);
    EXPECT_EQ(refusal.kind, TrashRefusalKind::noHome);
    EXPECT_EQ(refusal.text, "there is no home folder");
}

TEST_F(HomeTrash, RefusesALinkedTrash) {
    const std::string path = folder_.writeFile("a", "bytes");
    const std::string elsewhere = folder_.makeFolder("elsewhere");
    folder_.makeFolder("elsewhere/files");
    folder_.makeFolder("elsewhere/info");
    folder_.makeLink("home/data/Trash", elsewhere);
    const TrashRefusal refusal = expectRefused(path);
    EXPECT_EQ(refusal.kind, TrashRefusalKind::link);
    EXPECT_EQ(refusal.text, trash() + " is a link");
}

TEST_F(HomeTrash, RefusesALinkedFolderInIt) {
    const std::string path = folder_.writeFile("a", "bytes");
    folder_.makeFolder("elsewhere");
    for (const std::string part : {"/files", "/info"}) {
        std::filesystem::remove_all(trash());
        folder_.makeLink("home/data/Trash" + part, folder_.pathOf("elsewhere"));
        const TrashRefusal refusal = expectRefused(path);
        EXPECT_EQ(refusal.kind, TrashRefusalKind::link);
        EXPECT_EQ(refusal.text, trash() + part + " is a link");
        EXPECT_EQ(entriesIn(folder_.pathOf("elsewhere")), 0U);
    }
}

TEST_F(HomeTrash, AcceptsALinkInAParent) {
    folder_.makeFolder("real");
    folder_.makeLink("home/data", folder_.pathOf("real"));
    ASSERT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
    EXPECT_EQ(contentOf(folder_.pathOf("real/Trash/files/a")), "bytes");
}

TEST_F(HomeTrash, RefusesAFile) {
    const std::string path = folder_.writeFile("a", "bytes");
    for (const std::string part : {"", "/files", "/info"}) {
        std::filesystem::remove_all(trash());
        folder_.writeFile("home/data/Trash" + part, "no folder");
        const TrashRefusal refusal = expectRefused(path);
        EXPECT_EQ(refusal.kind, TrashRefusalKind::notFolder);
        EXPECT_EQ(refusal.text, trash() + part + " is not a folder");
        EXPECT_EQ(contentOf(trash() + part), "no folder");
    }
}

TEST_F(HomeTrash, BelowAFileReportsTheSystemError) {
    const std::string path = folder_.writeFile("a", "bytes");
    folder_.writeFile("home", "no folder");
    EXPECT_EQ(expectRefused(path).text, "Not a directory");
}

TEST_F(HomeTrash, RefusesThatOfAnotherUser) {
    const std::string path = folder_.writeFile("a", "bytes");
    for (const std::string part : {"", "/files", "/info"}) {
        std::filesystem::remove_all(trash());
        std::filesystem::create_directories(trash() + "/files");
        std::filesystem::create_directories(trash() + "/info");
        if (::chown((trash() + part).c_str(), 12'345, 12'345) != 0) {
            GTEST_SKIP() << "only root can give folders away";
        }
        const TrashRefusal refusal = expectRefused(path);
        EXPECT_EQ(refusal.kind, TrashRefusalKind::notOurs);
        EXPECT_EQ(refusal.text, "the Trash of the home folder belongs to somebody else");
    }
}

TEST_F(HomeTrash, RefusesOneWritableByOthers) {
    const std::string path = folder_.writeFile("a", "bytes");
    for (const std::string part : {"", "/files", "/info"}) {
        for (const unsigned mode : {0770U, 0702U}) {
            std::filesystem::remove_all(trash());
            std::filesystem::create_directories(trash() + "/files");
            std::filesystem::create_directories(trash() + "/info");
            ::chmod((trash() + part).c_str(), mode);
            const TrashRefusal refusal = expectRefused(path);
            EXPECT_EQ(refusal.kind, TrashRefusalKind::notPrivate);
            EXPECT_EQ(refusal.text, trash() + part + " can be changed by others");
        }
    }
}

TEST_F(HomeTrash, AcceptsOneReadableByOthers) {
    std::filesystem::create_directories(trash() + "/files");
    std::filesystem::create_directories(trash() + "/info");
    for (const std::string part : {"", "/files", "/info"}) {
        ::chmod((trash() + part).c_str(), 0755);
    }
    EXPECT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
}

TEST_F(HomeTrash, IsCreatedAgainAfterRemoval) {
    ASSERT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
    for (const std::string part : {"", "/files", "/info"}) {
        std::filesystem::remove_all(trash() + part);
        const auto moved = move(folder_.writeFile("b", "bytes"));
        ASSERT_TRUE(moved.ok()) << part << moved.error().text;
        EXPECT_EQ(contentOf(trashed(moved->name)), "bytes") << part;
        EXPECT_NE(trashInfo(moved->name), "") << part;
    }
}

TEST_F(HomeTrash, IsCreatedAgainIfRemovedBeforeTheRename) {
    const std::string path = folder_.writeFile("a", "bytes");
    calls_.before(TrashCall::renameExclusively, [this] { std::filesystem::remove_all(trash()); });
    ASSERT_TRUE(move(path).ok());
    EXPECT_EQ(contentOf(trashed("a")), "bytes");
    EXPECT_NE(trashInfo("a"), "");
}

TEST_F(HomeTrash, ReplacementByALinkIsNoticedInASecond) {
    ASSERT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
    std::filesystem::rename(trash(), trash() + ".old");
    folder_.makeLink("home/data/Trash", trash() + ".old");
    letASecondPass();
    EXPECT_EQ(expectRefused(folder_.writeFile("b", "bytes")).kind, TrashRefusalKind::link);
    EXPECT_EQ(entriesIn(trash() + ".old/files"), 1U);
}

TEST_F(HomeTrash, ReplacementByAFileIsNoticedInASecond) {
    ASSERT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
    std::filesystem::rename(trash(), trash() + ".old");
    folder_.writeFile("home/data/Trash", "no folder");
    letASecondPass();
    EXPECT_EQ(expectRefused(folder_.writeFile("b", "bytes")).kind, TrashRefusalKind::notFolder);
}

TEST_F(HomeTrash, ReplacementIsReopenedInASecond) {
    for (const std::string part : {"", "/files", "/info"}) {
        ASSERT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
        std::filesystem::rename(trash() + part, folder_.pathOf("old"));
        std::filesystem::create_directories(trash() + "/files");
        std::filesystem::create_directories(trash() + "/info");
        letASecondPass();
        const auto moved = move(folder_.writeFile("b", "bytes"));
        ASSERT_TRUE(moved.ok());
        EXPECT_EQ(contentOf(trashed(moved->name)), "bytes") << part;
        EXPECT_NE(trashInfo(moved->name), "") << part;
        std::filesystem::remove_all(folder_.pathOf("old"));
    }
}

TEST_F(HomeTrash, ChangeOfOwnerOrModeIsNoticedInASecond) {
    ASSERT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
    ::chmod((trash() + "/files").c_str(), 0777);
    letASecondPass();
    EXPECT_EQ(expectRefused(folder_.writeFile("b", "bytes")).kind, TrashRefusalKind::notPrivate);
}

TEST_F(HomeTrash, IsCheckedOnceASecondNotPerFile) {
    ASSERT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
    const std::size_t before = calls_.made();
    ASSERT_TRUE(move(folder_.writeFile("b", "bytes")).ok());
    // .trashinfo file (create, write, close), rename.
    EXPECT_EQ(calls_.made() - before, 4U);
}

/// Makes a folder immutable until destruction.
class Unchangeable final {
 public:
    explicit Unchangeable(const std::string& folder)
        : number_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        set(true);
    }
    Unchangeable(const Unchangeable&) = delete;
    Unchangeable& operator=(const Unchangeable&) = delete;
    ~Unchangeable() {
        set(false);
        ::close(number_);
    }

    [[nodiscard]] bool isSet() const { return isSet_; }

 private:
    void set(bool unchangeable) {
        unsigned flags = 0;
        ::ioctl(number_, FS_IOC_GETFLAGS, &flags);
        flags = unchangeable ? flags | FS_IMMUTABLE_FL : flags & ~unsigned{FS_IMMUTABLE_FL};
        isSet_ = ::ioctl(number_, FS_IOC_SETFLAGS, &flags) == 0;
        if (!isSet_) {
            skipTest("nothing can be made immutable");
        }
    }

    int number_;
    bool isSet_ = false;
};

TEST_F(HomeTrash, KeepsAFileInAnUnwritableFolder) {
    const std::string path = folder_.writeFile("fixed/a.txt", "bytes");
    const Unchangeable fixed(folder_.pathOf("fixed"));
    if (fixed.isSet()) {
        const TrashRefusal refusal = expectRefused(path);
        EXPECT_EQ(refusal.kind, TrashRefusalKind::system);
        EXPECT_EQ(refusal.error.code, EPERM);
        EXPECT_EQ(refusal.text, "Operation not permitted");
    }
}

TEST_F(HomeTrash, UnwritableTrashMovesNothing) {
    ASSERT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
    for (const std::string part : {"/files", "/info"}) {
        const Unchangeable fixed(trash() + part);
        if (fixed.isSet()) {
            EXPECT_EQ(expectRefused(folder_.writeFile("b", "bytes")).text,
                      "Operation not permitted");
        }
    }
}

TEST_F(HomeTrash, ReportsTheReasonOfEachFailedCall) {
    for (const auto& [call, code, text] :
         {std::tuple{TrashCall::createFile, EROFS, "Read-only file system"},
          std::tuple{TrashCall::createFile, ENOSPC, "No space left on device"},
          std::tuple{TrashCall::write, ENOSPC, "No space left on device"},
          std::tuple{TrashCall::write, EDQUOT, "Disk quota exceeded"},
          std::tuple{TrashCall::close, EIO, "Input/output error"},
          std::tuple{TrashCall::renameExclusively, EPERM, "Operation not permitted"},
          std::tuple{TrashCall::renameExclusively, EACCES, "Permission denied"}}) {
        calls_.heal();
        calls_.fail(call, code);
        const TrashRefusal refusal = expectRefused(folder_.writeFile("a", "bytes"));
        EXPECT_EQ(refusal.kind, TrashRefusalKind::system);
        EXPECT_EQ(refusal.error.code, code);
        EXPECT_EQ(refusal.text, text);
    }
}

TEST_F(HomeTrash, RefusesAcrossMounts) {
    calls_.fail(TrashCall::renameExclusively, EXDEV);
    const TrashRefusal refusal = expectRefused(folder_.writeFile("a", "bytes"));
    EXPECT_EQ(refusal.kind, TrashRefusalKind::otherVolume);
    EXPECT_EQ(refusal.error.code, EXDEV);
    EXPECT_EQ(refusal.text, "the file and the Trash are on different file systems or mounts");
}

TEST_F(HomeTrash, RepeatsShortWritesOfATrashinfo) {
    calls_.limitWrites(1);
    ASSERT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
    EXPECT_TRUE(trashInfo("a").ends_with("\nDeletionDate=2026-01-31T00:00:00\n")) << trashInfo("a");
    calls_.limitWrites(0);
    EXPECT_EQ(expectRefused(folder_.writeFile("b", "bytes")).error.code, EIO);
}

// Each call of a move fails once, for a Trash that must be created and for an open one.
TEST_F(HomeTrash, KeepsTheFileIfAnyCallFails) {
    for (const bool isOpen : {false, true}) {
        bool hasEnded = false;
        for (std::size_t number = 0; !hasEnded; ++number) {
            ASSERT_LT(number, 40U);
            std::filesystem::remove_all(folder_.pathOf("home"));
            FaultyTrashCalls calls;
            mover_ = makeTrashMover({trash(), static_cast<std::uint32_t>(::geteuid())},
                                    {calls, clock_, mountTable_});
            if (isOpen) {
                ASSERT_TRUE(move(folder_.writeFile("first", "bytes")).ok());
                letASecondPass();
            }
            const std::string path = folder_.writeFile("a", "bytes");
            calls.failOnce(number, EIO);
            const auto moved = move(path);
            hasEnded = !calls.hasFailed();
            EXPECT_EQ(calls.filesOpen(), 0U) << number;
            // After a failed check the Trash may be reopened.
            EXPECT_EQ(moved.ok(), contentOf(trashed("a")) == "bytes") << number;
            EXPECT_EQ(moved.ok(), !trashInfo("a").empty()) << number;
            EXPECT_NE(moved.ok(), contentOf(path) == "bytes") << number;
            EXPECT_EQ(entriesIn(trash() + "/files"), entriesIn(trash() + "/info")) << number;
            if (!moved) {
                EXPECT_EQ(moved.error().text, "Input/output error") << number;
            }
            if (hasEnded) {
                EXPECT_TRUE(moved.ok());
            }
        }
    }
}

class TrashWithoutExclusiveRename : public TrashFixture, public ::testing::WithParamInterface<int> {
 protected:
    TrashWithoutExclusiveRename() { calls_.fail(TrashCall::renameExclusively, GetParam()); }
};

TEST_P(TrashWithoutExclusiveRename, MovesAFile) {
    const std::string path = folder_.writeFile("a", "bytes");
    ASSERT_TRUE(move(path).ok());
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(contentOf(trashed("a")), "bytes");
    EXPECT_NE(trashInfo("a"), "");
}

TEST_P(TrashWithoutExclusiveRename, KeepsAFileWithoutTrashinfo) {
    expectFileWithoutTrashInfoLeftAlone();
}

TEST_P(TrashWithoutExclusiveRename, KeepsTheFileIfACallFails) {
    ASSERT_TRUE(move(folder_.writeFile("first", "bytes")).ok());
    for (const TrashCall call : {TrashCall::status, TrashCall::rename}) {
        calls_.heal();
        calls_.fail(TrashCall::renameExclusively, GetParam());
        calls_.fail(call, EIO);
        EXPECT_EQ(expectRefused(folder_.writeFile("a", "bytes")).text, "Input/output error");
    }
}

TEST_P(TrashWithoutExclusiveRename, RestoresAFile) {
    const std::string path = folder_.writeFile("a", "bytes");
    const auto moved = move(path);
    ASSERT_TRUE(moved.ok());
    EXPECT_FALSE(putBack(*moved, path));
    EXPECT_EQ(contentOf(path), "bytes");
    EXPECT_EQ(std::filesystem::hard_link_count(path), 1U);
    EXPECT_EQ(entriesIn(trash() + "/files"), 0U);
    EXPECT_EQ(entriesIn(trash() + "/info"), 0U);
}

TEST_P(TrashWithoutExclusiveRename, RestoresOverNoOtherFile) {
    const std::string path = folder_.writeFile("a", "bytes");
    const auto moved = move(path);
    ASSERT_TRUE(moved.ok());
    folder_.writeFile("a", "other");
    const auto refusal = putBack(*moved, path);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, TrashRefusalKind::taken);
    EXPECT_EQ(contentOf(path), "other");
    EXPECT_EQ(contentOf(trashed("a")), "bytes");
    EXPECT_NE(trashInfo("a"), "");
}

class TrashWithoutExclusiveRenameAndLinks : public TrashWithoutExclusiveRename {
 protected:
    TrashWithoutExclusiveRenameAndLinks() {
        path_ = folder_.writeFile("a", "bytes");
        place_ = *move(path_);
        calls_.fail(TrashCall::link, EPERM);
    }

    std::string path_;
    TrashPlace place_;
};

TEST_P(TrashWithoutExclusiveRenameAndLinks, RestoresAFile) {
    EXPECT_FALSE(putBack(place_, path_));
    EXPECT_EQ(contentOf(path_), "bytes");
    EXPECT_EQ(entriesIn(trash() + "/files"), 0U);
    EXPECT_EQ(entriesIn(trash() + "/info"), 0U);
    EXPECT_EQ(calls_.filesOpen(), 0U);
}

TEST_P(TrashWithoutExclusiveRenameAndLinks, RestoresOverNoOtherFile) {
    folder_.writeFile("a", "other");
    const auto refusal = putBack(place_, path_);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, TrashRefusalKind::taken);
    EXPECT_EQ(contentOf(path_), "other");
    EXPECT_EQ(contentOf(trashed("a")), "bytes");
}

TEST_P(TrashWithoutExclusiveRenameAndLinks, RemovesThePlaceholderIfACallFails) {
    for (const TrashCall call : {TrashCall::createFile, TrashCall::close, TrashCall::rename}) {
        calls_.failNext(call, EIO);
        const auto refusal = putBack(place_, path_);
        ASSERT_TRUE(refusal);
        EXPECT_EQ(refusal->error.code, EIO);
        EXPECT_FALSE(std::filesystem::exists(path_));
        EXPECT_EQ(contentOf(trashed("a")), "bytes");
        EXPECT_NE(trashInfo("a"), "");
    }
}

INSTANTIATE_TEST_SUITE_P(EachAnswer, TrashWithoutExclusiveRenameAndLinks,
                         ::testing::Values(EINVAL, ENOSYS, EOPNOTSUPP));

// The file must always keep a name; a second one in the Trash is harmless.
TEST_P(TrashWithoutExclusiveRename, KeepsTheTrashinfoIfTheNameInTheTrashStays) {
    const std::string path = folder_.writeFile("a", "bytes");
    const auto moved = move(path);
    ASSERT_TRUE(moved.ok());
    calls_.failNext(TrashCall::unlink, EIO);
    EXPECT_FALSE(putBack(*moved, path));
    EXPECT_EQ(contentOf(path), "bytes");
    EXPECT_EQ(contentOf(trashed("a")), "bytes");
    EXPECT_NE(trashInfo("a"), "");
}

TEST_P(TrashWithoutExclusiveRename, KeepsAnotherFileThatTookTheName) {
    const std::string path = folder_.writeFile("a", "bytes");
    const auto moved = move(path);
    ASSERT_TRUE(moved.ok());
    calls_.before(TrashCall::status, [this] {
        std::filesystem::remove(trashed("a"));
        std::ofstream(trashed("a")) << "other";
    });
    EXPECT_FALSE(putBack(*moved, path));
    EXPECT_EQ(contentOf(path), "bytes");
    EXPECT_EQ(contentOf(trashed("a")), "other");
}

INSTANTIATE_TEST_SUITE_P(EachAnswer, TrashWithoutExclusiveRename,
                         ::testing::Values(EINVAL, ENOSYS, EOPNOTSUPP));

using PutBack = TrashFixture;

TEST_F(PutBack, RestoresTheFileAndRemovesTheTrashinfo) {
    const std::string path = folder_.writeFile("a", "bytes");
    const auto moved = move(path);
    ASSERT_TRUE(moved.ok());
    EXPECT_FALSE(putBack(*moved, path));
    EXPECT_EQ(contentOf(path), "bytes");
    EXPECT_EQ(entriesIn(trash() + "/files"), 0U);
    EXPECT_EQ(entriesIn(trash() + "/info"), 0U);
}

TEST_F(PutBack, OpensTheTrashByItsPath) {
    const std::string path = folder_.writeFile("a", "bytes");
    const auto moved = move(path);
    ASSERT_TRUE(moved.ok());
    mover_ = newMover();
    EXPECT_FALSE(putBack(*moved, folder_.pathOf("b")));
    EXPECT_EQ(contentOf(folder_.pathOf("b")), "bytes");
    EXPECT_EQ(entriesIn(trash() + "/info"), 0U);
}

TEST_F(PutBack, ReplacesNothing) {
    const std::string path = folder_.writeFile("a", "bytes");
    const auto moved = move(path);
    ASSERT_TRUE(moved.ok());
    folder_.writeFile("a", "other");
    const auto refusal = putBack(*moved, path);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, TrashRefusalKind::taken);
    EXPECT_EQ(refusal->text, "File exists");
    EXPECT_EQ(contentOf(path), "other");
    EXPECT_EQ(contentOf(trashed("a")), "bytes");
    EXPECT_NE(trashInfo("a"), "");
}

TEST_F(PutBack, ReportsAFileMissingInTheTrash) {
    const auto moved = move(folder_.writeFile("a", "bytes"));
    ASSERT_TRUE(moved.ok());
    std::filesystem::remove(trashed("a"));
    const auto refusal = putBack(*moved, folder_.pathOf("a"));
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, TrashRefusalKind::gone);
    EXPECT_NE(trashInfo("a"), "");
}

TEST_F(PutBack, ReportsAMissingFolder) {
    const auto moved = move(folder_.writeFile("one/a", "bytes"));
    ASSERT_TRUE(moved.ok());
    const auto open = systemFileSystem().openDirectory(folder_.pathOf("one"));
    std::filesystem::remove(folder_.pathOf("one"));
    const auto refusal = mover_->putBack(*moved, *open, "a");
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, TrashRefusalKind::system);
    EXPECT_EQ(refusal->error.code, ENOENT);
    EXPECT_EQ(contentOf(trashed("a")), "bytes");
}

TEST_F(PutBack, CreatesNoMissingTrash) {
    for (const std::string part : {"", "/files", "/info"}) {
        const auto moved = move(folder_.writeFile("a", "bytes"));
        ASSERT_TRUE(moved.ok());
        std::filesystem::remove_all(trash() + part);
        mover_ = newMover();
        const auto refusal = putBack(*moved, folder_.pathOf("a"));
        ASSERT_TRUE(refusal) << part;
        EXPECT_EQ(refusal->kind, TrashRefusalKind::gone) << part;
        EXPECT_FALSE(std::filesystem::exists(trash() + part)) << part;
        std::filesystem::remove_all(trash());
    }
}

TEST_F(PutBack, RefusesAnUnsafeTrash) {
    const auto moved = move(folder_.writeFile("a", "bytes"));
    ASSERT_TRUE(moved.ok());
    mover_ = newMover();
    std::filesystem::rename(trash() + "/files", folder_.pathOf("files"));
    folder_.makeLink("home/data/Trash/files", folder_.pathOf("files"));
    const auto refusal = putBack(*moved, folder_.pathOf("a"));
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, TrashRefusalKind::link);
    const auto found = mover_->attributes(*moved);
    ASSERT_FALSE(found.ok());
    EXPECT_EQ(found.error().kind, TrashRefusalKind::link);
}

TEST_F(PutBack, KeepsFileAndTrashinfoIfTheRenameFails) {
    const std::string path = folder_.writeFile("a", "bytes");
    const auto moved = move(path);
    ASSERT_TRUE(moved.ok());
    for (const int code : {EIO, EXDEV, EROFS}) {
        calls_.fail(TrashCall::renameExclusively, code);
        const auto refusal = putBack(*moved, path);
        ASSERT_TRUE(refusal);
        EXPECT_EQ(refusal->error.code, code);
        EXPECT_EQ(contentOf(trashed("a")), "bytes");
        EXPECT_NE(trashInfo("a"), "");
        EXPECT_FALSE(std::filesystem::exists(path));
    }
}

using TrashLook = TrashFixture;

TEST_F(TrashLook, ReturnsTheMetadata) {
    const std::string path = folder_.writeFile("a", "bytes");
    const auto before = systemFileSystem().attributesAtPath(path);
    const auto moved = move(path);
    ASSERT_TRUE(moved.ok());
    const auto found = mover_->attributes(*moved);
    ASSERT_TRUE(found.ok());
    EXPECT_EQ(found->identity, before->identity);
    EXPECT_EQ(found->size, 5U);
    EXPECT_EQ(found->type, EntryType::regular);
}

TEST_F(TrashLook, DoesNotFollowALink) {
    const auto moved = move(folder_.makeLink("a", "/"));
    ASSERT_TRUE(moved.ok());
    EXPECT_EQ(mover_->attributes(*moved)->type, EntryType::other);
}

TEST_F(TrashLook, ReportsAMissingFile) {
    const auto withoutTrash = mover_->attributes({trash(), "a"});
    ASSERT_FALSE(withoutTrash.ok());
    EXPECT_EQ(withoutTrash.error().kind, TrashRefusalKind::gone);
    EXPECT_FALSE(std::filesystem::exists(trash()));
    ASSERT_TRUE(move(folder_.writeFile("a", "bytes")).ok());
    const auto withTrash = mover_->attributes({trash(), "b"});
    ASSERT_FALSE(withTrash.ok());
    EXPECT_EQ(withTrash.error().kind, TrashRefusalKind::gone);
}

TEST_F(TrashLook, FindsFilesByIdentityUnderAnyName) {
    std::vector<FileIdentity> wanted;
    for (int each = 0; each < 400; ++each) {
        const std::string path = folder_.writeFile("a", std::to_string(each));
        if (each % 2 == 0) {
            wanted.push_back(systemFileSystem().attributesAtPath(path)->identity);
        }
        ASSERT_TRUE(move(path).ok());
    }
    wanted.push_back({1, 1});
    mover_ = newMover();
    for (const int round : {1, 2}) {
        const auto found = mover_->find(trash(), wanted);
        ASSERT_TRUE(found.ok());
        ASSERT_EQ(found->size(), 200U) << round;
        for (const TrashedFile& file : *found) {
            EXPECT_EQ(std::stoi(contentOf(trashed(file.name))) % 2, 0);
            EXPECT_EQ(file.attributes.identity,
                      systemFileSystem().attributesAtPath(trashed(file.name))->identity);
        }
    }
}

TEST_F(TrashLook, FailsForAMissingTrash) {
    const auto found = mover_->find(trash(), {});
    ASSERT_FALSE(found.ok());
    EXPECT_EQ(found.error().kind, TrashRefusalKind::gone);
}

}  // namespace
}  // namespace tarvin
