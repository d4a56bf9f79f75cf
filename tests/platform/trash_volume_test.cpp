#include "platform/trash_fixture.h"
#include "support/mount.h"

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <regex>
#include <string>
#include <vector>

namespace tarvin {
namespace {

/// A mounted volume, and a home folder on another file system.
class VolumeTrash : public TrashFixture {
 protected:
    VolumeTrash() {
        if (hasVolume()) {
            writeFile("a.txt");
        }
    }

    std::string writeFile(const std::string& name) {
        std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
        std::ofstream(path(name)) << "bytes";
        return path(name);
    }

    [[nodiscard]] std::string path(const std::string& name) const { return volume_->pathOf(name); }
    [[nodiscard]] std::string top() const {
        return std::filesystem::path(path("x")).parent_path().native();
    }
    [[nodiscard]] std::string own() const { return path(".Trash-" + user()); }
    [[nodiscard]] std::string shared() const { return path(".Trash/" + user()); }

    /// Moves a file and returns its Trash.
    std::string trashOf(const std::string& path) {
        const auto moved = move(path);
        EXPECT_TRUE(moved.ok()) << moved.error().text;
        if (!moved) {
            return "";
        }
        EXPECT_EQ(contentOf(moved->trash + "/files/" + moved->name), "bytes");
        EXPECT_NE(contentOf(moved->trash + "/info/" + moved->name + ".trashinfo"), "");
        return moved->trash;
    }
};

TEST_F(VolumeTrash, IsTheUsersInTheTopDirectory) {
    if (hasVolume()) {
        const TimeZone zone("UTC0");
        const mode_t before = ::umask(0);
        EXPECT_EQ(trashOf(writeFile("sub/a b.jpg")), own());
        ::umask(before);
        EXPECT_EQ(contentOf(own() + "/info/a b.jpg.trashinfo"),
                  "[Trash Info]\nPath=sub/a%20b.jpg\nDeletionDate=2026-01-31T00:00:00\n");
        for (const std::string part : {"", "/files", "/info"}) {
            EXPECT_EQ(std::filesystem::status(own() + part).permissions(),
                      std::filesystem::perms::owner_all);
        }
        EXPECT_FALSE(std::filesystem::exists(trash()));
        EXPECT_FALSE(std::filesystem::exists(path(".Trash")));
    }
}

TEST_F(VolumeTrash, IsInTheSharedOneIfItExists) {
    if (hasVolume()) {
        std::filesystem::create_directory(path(".Trash"));
        ::chmod(path(".Trash").c_str(), 01777);
        EXPECT_EQ(trashOf(path("a.txt")), shared());
        EXPECT_NE(contentOf(shared() + "/info/a.txt.trashinfo").find("Path=a.txt\n"),
                  std::string::npos);
        EXPECT_EQ(std::filesystem::status(shared()).permissions(),
                  std::filesystem::perms::owner_all);
        EXPECT_FALSE(std::filesystem::exists(own()));
    }
}

TEST_F(VolumeTrash, IsNotInASharedOneWithoutStickyBit) {
    if (hasVolume()) {
        std::filesystem::create_directory(path(".Trash"));
        ::chmod(path(".Trash").c_str(), 0777);
        EXPECT_EQ(trashOf(path("a.txt")), own());
        EXPECT_EQ(entriesIn(path(".Trash")), 0U);
    }
}

TEST_F(VolumeTrash, IsNotInASharedOneThatIsALink) {
    if (hasVolume()) {
        std::filesystem::create_directory(path("elsewhere"));
        ::chmod(path("elsewhere").c_str(), 01777);
        std::filesystem::create_directory_symlink("elsewhere", path(".Trash"));
        EXPECT_EQ(trashOf(path("a.txt")), own());
        EXPECT_EQ(entriesIn(path("elsewhere")), 0U);
    }
}

TEST_F(VolumeTrash, IsNotInASharedOneThatIsAFile) {
    if (hasVolume()) {
        std::ofstream(path(".Trash")) << "no folder";
        ::chmod(path(".Trash").c_str(), 01777);
        EXPECT_EQ(trashOf(path("a.txt")), own());
    }
}

TEST_F(VolumeTrash, IsNotThatOfAnotherUserInTheSharedOne) {
    if (hasVolume()) {
        std::filesystem::create_directories(shared());
        ::chmod(path(".Trash").c_str(), 01777);
        ASSERT_EQ(::chown(shared().c_str(), 12'345, 12'345), 0);
        EXPECT_EQ(trashOf(path("a.txt")), own());
        EXPECT_EQ(entriesIn(shared()), 0U);
    }
}

TEST_F(VolumeTrash, IsNotALinkInTheSharedOne) {
    if (hasVolume()) {
        std::filesystem::create_directory(path(".Trash"));
        ::chmod(path(".Trash").c_str(), 01777);
        std::filesystem::create_directory(path("elsewhere"));
        std::filesystem::create_directory_symlink("../elsewhere", shared());
        EXPECT_EQ(trashOf(path("a.txt")), own());
        EXPECT_EQ(entriesIn(path("elsewhere")), 0U);
    }
}

TEST_F(VolumeTrash, NoticesALostStickyBitInASecond) {
    if (hasVolume()) {
        std::filesystem::create_directory(path(".Trash"));
        ::chmod(path(".Trash").c_str(), 01777);
        EXPECT_EQ(trashOf(path("a.txt")), shared());
        ::chmod(path(".Trash").c_str(), 0777);
        letASecondPass();
        EXPECT_EQ(trashOf(writeFile("b.txt")), own());
    }
}

TEST_F(VolumeTrash, RefusesThatOfAnotherUser) {
    if (hasVolume()) {
        std::filesystem::create_directory(own());
        ASSERT_EQ(::chown(own().c_str(), 12'345, 12'345), 0);
        const TrashRefusal refusal = expectRefused(path("a.txt"), own());
        EXPECT_EQ(refusal.kind, TrashRefusalKind::notOurs);
        EXPECT_EQ(refusal.text, "the Trash of this volume belongs to somebody else");
        EXPECT_EQ(entriesIn(own()), 0U);
    }
}

TEST_F(VolumeTrash, RefusesALinkedFolderInIt) {
    for (const std::string part : {"", "/files", "/info"}) {
        const LoopVolume volume;
        if (volume) {
            const std::string own = volume.pathOf(".Trash-" + user());
            const std::string elsewhere = volume.pathOf("elsewhere");
            std::ofstream(volume.pathOf("a.txt")) << "bytes";
            for (const std::string each : {"/files", "/info"}) {
                std::filesystem::create_directories(elsewhere + each);
                std::filesystem::create_directories(own + each);
            }
            std::filesystem::remove_all(own + part);
            std::filesystem::create_directory_symlink(elsewhere + part, own + part);
            const TrashRefusal refusal = expectRefused(volume.pathOf("a.txt"), elsewhere);
            EXPECT_EQ(refusal.kind, TrashRefusalKind::link);
            EXPECT_EQ(refusal.text, own + part + " is a link");
        }
    }
}

TEST_F(VolumeTrash, WritableByOthersOnlyWithoutPermissions) {
    if (hasVolume()) {
        std::filesystem::create_directory(own());
        ::chmod(own().c_str(), 0777);
        EXPECT_EQ(expectRefused(path("a.txt"), own()).kind, TrashRefusalKind::notPrivate);
        // The same mount, listed with a type without permissions.
        std::ifstream table("/proc/self/mountinfo");
        std::string text{std::istreambuf_iterator<char>(table), {}};
        text = std::regex_replace(text, std::regex(" - ext4 "), " - exfat ");
        mountTable_ = folder_.writeFile("mountinfo", text);
        mover_ = newMover();
        EXPECT_EQ(trashOf(path("a.txt")), own());
        mover_ = newMover();
        EXPECT_TRUE(mover_->attributes({own(), "a.txt"}).ok());
    }
}

TEST_F(VolumeTrash, OfAReadOnlyVolumeMovesNothing) {
    if (hasVolume()) {
        writeFile("b.txt");
        for (const std::string name : {"a.txt", "b.txt"}) {
            ASSERT_EQ(::mount(nullptr, top().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
            const TrashRefusal refusal = expectRefused(path(name), own());
            EXPECT_EQ(refusal.kind, TrashRefusalKind::system);
            EXPECT_EQ(refusal.error.code, EROFS);
            EXPECT_EQ(refusal.text, "Read-only file system");
            ASSERT_EQ(::mount(nullptr, top().c_str(), nullptr, MS_REMOUNT, nullptr), 0);
            // First without a Trash, then with one.
            EXPECT_EQ(trashOf(path(name)), own());
        }
    }
}

TEST_F(VolumeTrash, OfAFullVolumeMovesNothing) {
    if (hasVolume()) {
        EXPECT_EQ(trashOf(path("a.txt")), own());
        writeFile("b.txt");
        volume_->fill();
        const TrashRefusal refusal = expectRefused(path("b.txt"), own());
        EXPECT_EQ(refusal.kind, TrashRefusalKind::system);
        EXPECT_EQ(refusal.error.code, ENOSPC);
        EXPECT_EQ(refusal.text, "No space left on device");
    }
}

TEST_F(VolumeTrash, OfAFullVolumeIsNotCreated) {
    if (hasVolume()) {
        volume_->fill();
        EXPECT_EQ(expectRefused(path("a.txt"), own()).text, "No space left on device");
    }
}

TEST_F(VolumeTrash, OfAVolumeWithoutInodesMovesNothing) {
    const Mount mount("none", folder_.makeFolder("volume"), "tmpfs", 0, "nr_inodes=12");
    if (mount) {
        EXPECT_NE(trashOf(folder_.writeFile("volume/a", "bytes")), "");
        folder_.writeFile("volume/b", "bytes");
        std::size_t number = 0;
        while (std::ofstream(folder_.pathOf("volume/fill" + std::to_string(number)))) {
            ASSERT_LT(++number, 20U);
        }
        const std::string own = folder_.pathOf("volume/.Trash-" + user());
        EXPECT_EQ(expectRefused(folder_.pathOf("volume/b"), own).text, "No space left on device");
    }
}

TEST_F(VolumeTrash, NumbersFilesWithOneNameFromSeveralFolders) {
    if (hasVolume()) {
        for (const std::string folder : {"one/", "two/", "one/three/"}) {
            EXPECT_EQ(trashOf(writeFile(folder + "x.txt")), own());
        }
        EXPECT_NE(contentOf(own() + "/info/x.3.txt.trashinfo").find("Path=one/three/x.txt\n"),
                  std::string::npos);
    }
}

TEST_F(VolumeTrash, RecordsTheRealPathOfALinkedFolder) {
    if (hasVolume()) {
        writeFile("sub/b.txt");
        folder_.makeLink("way", path("sub"));
        const auto moved = mover_->move(openedFolder(folder_.pathOf("way")), "b.txt");
        ASSERT_TRUE(moved.ok()) << moved.error().text;
        EXPECT_NE(contentOf(own() + "/info/b.txt.trashinfo").find("Path=sub/b.txt\n"),
                  std::string::npos);
    }
}

TEST_F(VolumeTrash, IsThatOfTheMountNotOfItsDevice) {
    if (hasVolume()) {
        writeFile("sub/deeper/b.txt");
        const std::string bound = folder_.makeFolder("bound");
        const Mount mount(path("sub"), bound, nullptr, MS_BIND);
        ASSERT_TRUE(mount);
        EXPECT_EQ(trashOf(bound + "/deeper/b.txt"), bound + "/.Trash-" + user());
        EXPECT_NE(contentOf(path("sub/.Trash-" + user() + "/info/b.txt.trashinfo"))
                      .find("Path=deeper/b.txt\n"),
                  std::string::npos);
        EXPECT_EQ(trashOf(path("a.txt")), own());
    }
}

TEST_F(VolumeTrash, RefusesAnotherMountOfTheHome) {
    folder_.writeFile("shown/a.txt", "bytes");
    const std::string bound = folder_.makeFolder("bound");
    const Mount mount(folder_.pathOf("shown"), bound, nullptr, MS_BIND);
    if (mount) {
        const TrashRefusal refusal = expectRefused(bound + "/a.txt");
        EXPECT_EQ(refusal.kind, TrashRefusalKind::otherVolume);
        EXPECT_EQ(refusal.text, "the file and the Trash are on different file systems or mounts");
        EXPECT_EQ(entriesIn(bound), 1U);
    }
}

TEST_F(VolumeTrash, IsFoundForAMountWithAnyName) {
    const std::string top = folder_.makeFolder("a b\tc\nd\\040 \xff");
    const Mount mount("none", top, "tmpfs");
    if (mount) {
        std::ofstream(top + "/a.txt") << "bytes";
        EXPECT_EQ(trashOf(top + "/a.txt"), top + "/.Trash-" + user());
    }
}

TEST_F(VolumeTrash, RefusesAHiddenMount) {
    if (hasVolume()) {
        const OpenFolder folder = openedFolder(top());
        const Mount mount("none", top(), "tmpfs");
        ASSERT_TRUE(mount);
        const auto moved = mover_->move(folder, "a.txt");
        ASSERT_FALSE(moved.ok());
        EXPECT_EQ(moved.error().kind, TrashRefusalKind::noVolume);
        EXPECT_EQ(moved.error().text, "the volume of the file is not accessible");
        EXPECT_EQ(entriesIn(top()), 0U);
    }
}

TEST_F(VolumeTrash, RefusesAMountThatIsNotListed) {
    if (hasVolume()) {
        mountTable_ = folder_.pathOf("missing");
        mover_ = newMover();
        EXPECT_EQ(expectRefused(path("a.txt"), own()).kind, TrashRefusalKind::noVolume);
        EXPECT_FALSE(std::filesystem::exists(own()));
    }
}

TEST_F(VolumeTrash, IsUsedIfTheHomeTrashIsUnsafe) {
    if (hasVolume()) {
        folder_.makeLink("home/data/Trash", folder_.makeFolder("elsewhere"));
        EXPECT_EQ(trashOf(path("a.txt")), own());
    }
}

TEST_F(VolumeTrash, RestoresAFileAfterReopening) {
    if (hasVolume()) {
        for (const bool isShared : {false, true}) {
            if (isShared) {
                std::filesystem::create_directory(path(".Trash"));
                ::chmod(path(".Trash").c_str(), 01777);
            }
            const auto moved = move(path("a.txt"));
            ASSERT_TRUE(moved.ok());
            EXPECT_EQ(moved->trash, isShared ? shared() : own());
            mover_ = newMover();
            EXPECT_TRUE(mover_->attributes(*moved).ok());
            const auto refusal = putBack(*moved, path("a.txt"));
            EXPECT_FALSE(refusal) << refusal->text;
            EXPECT_EQ(contentOf(path("a.txt")), "bytes");
            EXPECT_EQ(entriesIn(moved->trash + "/info"), 0U);
        }
    }
}

TEST_F(VolumeTrash, RestoresNothingToAnotherVolume) {
    if (hasVolume()) {
        const auto moved = move(path("a.txt"));
        ASSERT_TRUE(moved.ok());
        const auto refusal = putBack(*moved, folder_.pathOf("a.txt"));
        ASSERT_TRUE(refusal);
        EXPECT_EQ(refusal->kind, TrashRefusalKind::otherVolume);
        EXPECT_TRUE(mover_->attributes(*moved).ok());
    }
}

TEST_F(VolumeTrash, RestoresNothingFromOneWithoutStickyBit) {
    if (hasVolume()) {
        std::filesystem::create_directory(path(".Trash"));
        ::chmod(path(".Trash").c_str(), 01777);
        const auto moved = move(path("a.txt"));
        ASSERT_TRUE(moved.ok());
        ::chmod(path(".Trash").c_str(), 0777);
        mover_ = newMover();
        const auto found = mover_->attributes(*moved);
        ASSERT_FALSE(found.ok());
        EXPECT_EQ(found.error().kind, TrashRefusalKind::notPrivate);
    }
}

TEST_F(VolumeTrash, IsReopenedWithManyMounts) {
    std::vector<std::unique_ptr<Mount>> mounts;
    for (int each = 0; each < 40; ++each) {
        const std::string top = folder_.makeFolder("mount" + std::to_string(each));
        mounts.push_back(std::make_unique<Mount>("none", top, "tmpfs"));
        if (!*mounts.back()) {
            return;
        }
        std::ofstream(top + "/a.txt") << "bytes";
        EXPECT_EQ(trashOf(top + "/a.txt"), top + "/.Trash-" + user());
    }
    EXPECT_LE(entriesIn("/proc/self/fd"), 80U);
}

}  // namespace
}  // namespace tarvin
