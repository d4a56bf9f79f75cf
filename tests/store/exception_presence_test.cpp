#include "store/exception_presence.h"

#include "support/fake_platform.h"
#include "support/faulty_file_system.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Presences = std::vector<Presence>;

/// A folder with the mount point "drive", on which nothing is mounted.
class ExceptionPresenceTest : public ::testing::Test {
 protected:
    ExceptionPresenceTest() { unmount(); }

    void unmount() { platform_.setMountPlaces({{"/"}, {folder_.pathOf("drive")}}); }
    void mount() {
        platform_.setMountPlaces({{"/", folder_.pathOf("drive")}, {folder_.pathOf("drive")}});
    }

    Presence of(const std::string& path) {
        return ExceptionPresence(platform_).of(std::vector<std::string>{path}).at(0);
    }
    Presence in(const std::string& name) { return of(folder_.pathOf(name)); }

    TemporaryFolder folder_;
    FaultyFileSystem fileSystem_;
    FakePlatform platform_{fileSystem_};
};

TEST_F(ExceptionPresenceTest, KeepsTheOrderOfThePaths) {
    folder_.writeFile("a.jpg", "");
    const std::vector<std::string> paths{folder_.pathOf("b.jpg"), folder_.pathOf("a.jpg"),
                                         folder_.pathOf("drive/c.jpg")};
    EXPECT_EQ(ExceptionPresence(platform_).of(paths),
              (Presences{Presence::missing, Presence::present, Presence::notAttached}));
}

TEST_F(ExceptionPresenceTest, AFileInAMissingFolderIsMissing) {
    EXPECT_EQ(in("no/such/folder/a.jpg"), Presence::missing);
    folder_.writeFile("file", "");
    EXPECT_EQ(in("file/a.jpg"), Presence::missing);
    EXPECT_EQ(of("/no such file.jpg"), Presence::missing);
}

TEST_F(ExceptionPresenceTest, ADanglingLinkIsThere) {
    folder_.makeLink("a.jpg", "nowhere");
    EXPECT_EQ(in("a.jpg"), Presence::present);
}

TEST_F(ExceptionPresenceTest, AnUnmountedVolumeIsNotAttached) {
    EXPECT_EQ(in("drive/photos/a.jpg"), Presence::notAttached);
    folder_.makeFolder("drive");
    EXPECT_EQ(in("drive/photos/a.jpg"), Presence::notAttached);
    mount();
    EXPECT_EQ(in("drive/photos/a.jpg"), Presence::missing);
}

TEST_F(ExceptionPresenceTest, ALinkToAnUnmountedVolumeIsFollowed) {
    folder_.makeLink("relative", "drive/photos");
    folder_.makeLink("absolute", folder_.pathOf("drive") + "/");
    folder_.makeLink("twice", "absolute/photos");
    folder_.makeLink("elsewhere", "gone/photos");
    for (const bool isMountPointThere : {false, true}) {
        if (isMountPointThere) {
            folder_.makeFolder("drive");
        }
        unmount();
        EXPECT_EQ(in("relative/a.jpg"), Presence::notAttached);
        EXPECT_EQ(in("absolute/photos/a.jpg"), Presence::notAttached);
        EXPECT_EQ(in("twice/x/a.jpg"), Presence::notAttached);
        mount();
        EXPECT_EQ(in("relative/a.jpg"), Presence::missing);
        EXPECT_EQ(in("absolute/photos/a.jpg"), Presence::missing);
        EXPECT_EQ(in("twice/x/a.jpg"), Presence::missing);
        EXPECT_EQ(in("elsewhere/a.jpg"), Presence::missing);
    }
}

TEST_F(ExceptionPresenceTest, AnEndlessLinkIsUnknown) {
    folder_.makeLink("round", "round");
    EXPECT_EQ(in("round/a.jpg"), Presence::unknown);
}

TEST_F(ExceptionPresenceTest, WhatCannotBeLookedAtIsUnknown) {
    for (const int error : {EACCES, EIO, ESTALE, ENAMETOOLONG}) {
        fileSystem_.failCall(FileCall::attributesAtPath, FaultyFileSystem::each, error, "a.jpg");
        EXPECT_EQ(in("a.jpg"), Presence::unknown) << error;
        fileSystem_.clearFaults();
    }
    EXPECT_EQ(in("a.jpg"), Presence::missing);
}

TEST_F(ExceptionPresenceTest, AFolderThatCannotBeLookedAtIsUnknown) {
    fileSystem_.failCall(FileCall::attributesAtPath, 2, EACCES, "folder");
    EXPECT_EQ(in("folder/a.jpg"), Presence::unknown);
}

TEST_F(ExceptionPresenceTest, APathOfAnotherFormIsUnknown) {
    EXPECT_EQ(of("a.jpg"), Presence::unknown);
    EXPECT_EQ(of(""), Presence::unknown);
    EXPECT_EQ(of(folder_.path() + std::string("\0.jpg", 5)), Presence::unknown);
}

TEST_F(ExceptionPresenceTest, AVolumeThatGoesMeanwhileIsNotAttached) {
    mount();
    fileSystem_.beforeCall(FileCall::attributesAtPath, 1, [this] { unmount(); });
    EXPECT_EQ(in("drive/a.jpg"), Presence::notAttached);
}

TEST_F(ExceptionPresenceTest, AVolumeThatComesMeanwhileIsNotAttached) {
    fileSystem_.beforeCall(FileCall::attributesAtPath, 1, [this] { mount(); });
    EXPECT_EQ(in("drive/a.jpg"), Presence::notAttached);
    EXPECT_EQ(in("drive/a.jpg"), Presence::missing);
}

TEST_F(ExceptionPresenceTest, LooksForTheFolderOfManyMissingFilesOnce) {
    std::vector<std::string> paths;
    for (int number = 0; number < 512; ++number) {
        paths.push_back(folder_.pathOf("folder/" + std::to_string(number) + ".jpg"));
    }
    EXPECT_EQ(ExceptionPresence(platform_).of(paths), Presences(512, Presence::missing));
    // One for each file, and one each for "folder" and the folder around it.
    EXPECT_EQ(fileSystem_.calls(FileCall::attributesAtPath), 514U);
}

TEST_F(ExceptionPresenceTest, TestsMoreThanOneBlock) {
    std::vector<std::string> paths(1500, folder_.writeFile("a.jpg", ""));
    paths.push_back(folder_.pathOf("b.jpg"));
    Presences expected(1500, Presence::present);
    expected.push_back(Presence::missing);
    EXPECT_EQ(ExceptionPresence(platform_).of(paths), expected);
    EXPECT_EQ(ExceptionPresence(platform_).of({}), Presences{});
}

TEST(PresenceWord, NamesEach) {
    EXPECT_EQ(presenceWord(Presence::present), "present");
    EXPECT_EQ(presenceWord(Presence::missing), "missing");
    EXPECT_EQ(presenceWord(Presence::notAttached), "notAttached");
    EXPECT_EQ(presenceWord(Presence::unknown), "unknown");
}

}  // namespace
}  // namespace tarvin
