#include "platform/trash.h"

#include "platform/platform.h"
#include "support/file_content.h"
#include "support/loop_volume.h"
#include "support/mount.h"
#include "support/temporary_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>

namespace tarvin {
namespace {

/// The bytes that the "%XX" in a path stand for.
std::string decoded(const std::string& text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '%' && at + 2 < text.size()) {
            bytes += static_cast<char>(std::stoi(text.substr(at + 1, 2), nullptr, 16));
            at += 2;
        } else {
            bytes += text[at];
        }
    }
    return bytes;
}

std::size_t entriesIn(const std::string& folder) {
    std::error_code missing;
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder, missing)) {
        static_cast<void>(entry);
        ++count;
    }
    return count;
}

/// Files and the Trash of a home of the test's own, on one file system. main() says where.
class SystemTrash : public ::testing::Test {
 protected:
    void SetUp() override { std::filesystem::remove_all(home()); }

    static std::string home() {
        return std::getenv("XDG_DATA_HOME");  // NOLINT(concurrency-mt-unsafe)
    }

    static std::string trashed(const std::string& name) { return home() + "/Trash/files/" + name; }

    /// The path that the Trash wrote down for a file in it.
    static std::string infoPath(const std::string& name) {
        const std::string info = contentOf(home() + "/Trash/info/" + name + ".trashinfo");
        const std::size_t begin = info.find("Path=");
        EXPECT_NE(begin, std::string::npos) << info;
        return decoded(info.substr(begin + 5, info.find('\n', begin) - begin - 5));
    }

    /// Nothing has been moved: the file is whole and the Trash has neither it nor word of it.
    static void expectLeft(const std::string& path) {
        EXPECT_EQ(contentOf(path), "bytes");
        EXPECT_EQ(entriesIn(home() + "/Trash/files"), 0U);
        EXPECT_EQ(entriesIn(home() + "/Trash/info"), 0U);
    }

    TemporaryFolder folder_;
    Trash& trash_ = systemPlatform().trash();
};

TEST_F(SystemTrash, KnowsWhatExists) {
    const std::string path = folder_.writeFile("a.txt", "bytes");
    EXPECT_TRUE(trash_.fileExistsAtPath(path));
    EXPECT_FALSE(trash_.fileExistsAtPath(folder_.pathOf("missing")));
    EXPECT_TRUE(trash_.fileExistsAtPath(folder_.makeLink("link", "a.txt")));
    EXPECT_FALSE(trash_.fileExistsAtPath(folder_.makeLink("nowhere", "missing")));
}

TEST_F(SystemTrash, TakesAFileWithWordOfWhereItWas) {
    const std::string path = folder_.writeFile("a b.txt", "bytes");
    EXPECT_TRUE(trash_.trashItemAtPath(path));
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(contentOf(trashed("a b.txt")), "bytes");
    EXPECT_EQ(infoPath("a b.txt"), path);
}

TEST_F(SystemTrash, TakesNamesOfAnyBytes) {
    const std::string name = "line\nend \xff\xfe %41 \"quoted\".jpg";
    const std::string path = folder_.writeFile(name, "bytes");
    EXPECT_TRUE(trash_.trashItemAtPath(path));
    EXPECT_EQ(entriesIn(home() + "/Trash/files"), 1U);
    for (const auto& entry : std::filesystem::directory_iterator(home() + "/Trash/files")) {
        EXPECT_EQ(contentOf(entry.path()), "bytes");
        EXPECT_EQ(infoPath(entry.path().filename()), path);
    }
}

TEST_F(SystemTrash, TakesFilesOfOneNameSideBySide) {
    const std::string one = folder_.writeFile("one/a.txt", "one");
    const std::string two = folder_.writeFile("two/a.txt", "two");
    EXPECT_TRUE(trash_.trashItemAtPath(one));
    EXPECT_TRUE(trash_.trashItemAtPath(two));
    EXPECT_EQ(entriesIn(home() + "/Trash/files"), 2U);
    EXPECT_EQ(entriesIn(home() + "/Trash/info"), 2U);
    EXPECT_EQ(contentOf(trashed("a.txt")), "one");
}

TEST_F(SystemTrash, DoesNotTakeWhatIsGone) {
    EXPECT_FALSE(trash_.trashItemAtPath(folder_.pathOf("missing")));
    EXPECT_EQ(entriesIn(home() + "/Trash/info"), 0U);
}

TEST_F(SystemTrash, LeavesTheFileWhereTheTrashCannotBeMade) {
    const std::string path = folder_.writeFile("a.txt", "bytes");
    std::filesystem::create_directories(home());
    std::ofstream(home() + "/Trash") << "no folder";
    EXPECT_FALSE(trash_.trashItemAtPath(path));
    EXPECT_EQ(contentOf(path), "bytes");
    EXPECT_EQ(contentOf(home() + "/Trash"), "no folder");
}

TEST_F(SystemTrash, LeavesTheFileWhereAFolderOfTheTrashIsALink) {
    for (const std::string linked : {"files", "info"}) {
        std::filesystem::remove_all(home());
        std::filesystem::create_directories(home() + "/Trash/files");
        std::filesystem::create_directories(home() + "/Trash/info");
        std::filesystem::remove(home() + "/Trash/" + linked);
        std::filesystem::create_directory_symlink(folder_.makeFolder("elsewhere"),
                                                  home() + "/Trash/" + linked);
        const std::string path = folder_.writeFile("a.txt", "bytes");
        EXPECT_FALSE(trash_.trashItemAtPath(path)) << linked;
        EXPECT_EQ(contentOf(path), "bytes") << linked;
        EXPECT_EQ(entriesIn(folder_.pathOf("elsewhere")), 0U) << linked;
    }
}

TEST_F(SystemTrash, LeavesTheFileWhereTheTrashIsALink) {
    const std::string path = folder_.writeFile("a.txt", "bytes");
    std::filesystem::create_directories(home());
    std::filesystem::create_symlink(folder_.makeFolder("elsewhere"), home() + "/Trash");
    EXPECT_FALSE(trash_.trashItemAtPath(path));
    EXPECT_EQ(contentOf(path), "bytes");
    EXPECT_EQ(entriesIn(folder_.pathOf("elsewhere")), 0U);
}

/// Makes a folder unchangeable for the time of a test, for everybody.
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

 private:
    /// Rights alone do not keep the administrator out.
    void set(bool unchangeable) const {
        ::fchmod(number_, unchangeable ? 0500 : 0700);
        if (::geteuid() == 0) {
            unsigned flags = 0;
            ::ioctl(number_, FS_IOC_GETFLAGS, &flags);
            flags = unchangeable ? flags | FS_IMMUTABLE_FL : flags & ~unsigned{FS_IMMUTABLE_FL};
            ::ioctl(number_, FS_IOC_SETFLAGS, &flags);
        }
    }

    int number_;
};

TEST_F(SystemTrash, LeavesTheFileOfAFolderThatMayNotBeChanged) {
    const std::string path = folder_.writeFile("fixed/a.txt", "bytes");
    const Unchangeable unchangeable(folder_.pathOf("fixed"));
    EXPECT_FALSE(trash_.trashItemAtPath(path));
    expectLeft(path);
}

TEST_F(SystemTrash, OfAnotherVolumeIsThatVolumes) {
    const LoopVolume volume;
    if (volume) {
        std::ofstream(volume.pathOf("a.txt")) << "bytes";
        EXPECT_TRUE(trash_.trashItemAtPath(volume.pathOf("a.txt")));
        const std::string own = volume.pathOf(".Trash-" + std::to_string(::getuid()));
        EXPECT_EQ(contentOf(own + "/files/a.txt"), "bytes");
        EXPECT_NE(contentOf(own + "/info/a.txt.trashinfo").find("Path=a.txt\n"), std::string::npos);
        EXPECT_EQ(entriesIn(home() + "/Trash/files"), 0U);
    }
}

TEST_F(SystemTrash, OfAVolumeThatMayHaveNoneLeavesTheFile) {
    const std::string volume = folder_.makeFolder("volume");
    const Mount mount("none", volume, "tmpfs", MS_RDONLY);
    if (mount) {
        EXPECT_FALSE(trash_.trashItemAtPath(volume + "/a.txt"));
        EXPECT_EQ(entriesIn(home() + "/Trash/files"), 0U);
    }
}

TEST_F(SystemTrash, LeavesTheFileWhereAFolderOfAnotherVolumesTrashIsALink) {
    for (const char* linked : {"", "/files", "/info"}) {
        const LoopVolume volume;
        if (volume) {
            std::ofstream(volume.pathOf("a.txt")) << "bytes";
            const std::string own = volume.pathOf(".Trash-" + std::to_string(::getuid()));
            const std::string elsewhere = volume.pathOf("elsewhere");
            for (const char* each : {"/files", "/info"}) {
                std::filesystem::create_directories(elsewhere + each);
                std::filesystem::create_directories(own + each);
            }
            std::filesystem::remove_all(own + linked);
            std::filesystem::create_directory_symlink(elsewhere + linked, own + linked);
            EXPECT_FALSE(trash_.trashItemAtPath(volume.pathOf("a.txt"))) << linked;
            EXPECT_EQ(contentOf(volume.pathOf("a.txt")), "bytes") << linked;
        }
    }
}

// A note without a word in it would leave nobody knowing where the file was.
TEST_F(SystemTrash, LeavesTheFileWhereThereIsNoRoomForANoteOfIt) {
    const LoopVolume volume;
    if (volume) {
        std::ofstream(volume.pathOf("first.txt")) << "bytes";
        EXPECT_TRUE(trash_.trashItemAtPath(volume.pathOf("first.txt")));
        std::ofstream(volume.pathOf("a.txt")) << "bytes";
        volume.fill();
        EXPECT_FALSE(trash_.trashItemAtPath(volume.pathOf("a.txt")));
        EXPECT_EQ(contentOf(volume.pathOf("a.txt")), "bytes");
    }
}

TEST_F(SystemTrash, LeavesTheFileOnAFullVolume) {
    std::filesystem::create_directories(home());
    const Mount mount("none", home(), "tmpfs", 0, "size=64k,nr_inodes=20");
    if (mount) {
        std::ofstream(home() + "/a.txt") << "bytes";
        for (int number = 0; number < 20; ++number) {
            std::ofstream(home() + "/fill" + std::to_string(number)) << std::string(8'000, 'x');
        }
        EXPECT_FALSE(trash_.trashItemAtPath(home() + "/a.txt"));
        EXPECT_EQ(contentOf(home() + "/a.txt"), "bytes");
    }
}

}  // namespace
}  // namespace tarvin

/// The system's library does not free all of its notes where the folder of the file refuses. Only
/// the sanitizers ask.
extern "C" const char* __asan_default_options();   // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __asan_default_options() {  // NOLINT(bugprone-reserved-identifier)
    return "detect_leaks=0";
}

/// The system's library looks once for the home, so it is set before any test.
int main(int argc, char** argv) {
    const tarvin::TemporaryFolder home;
    ::setenv("XDG_DATA_HOME", home.pathOf("data").c_str(), 1);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
