#include "platform/file_system.h"

#include "support/file_tree.h"
#include "support/mount.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sys/fsuid.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

// Not the owner of anything here, nor of the system's files.
constexpr uid_t nobody = 65534;

/// Runs this thread as an unprivileged user. No effect if the tests are not run by root.
class WithoutRights final {
 public:
    WithoutRights() : before_(static_cast<uid_t>(::setfsuid(nobody))) {}
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;
    ~WithoutRights() { ::setfsuid(before_); }

 private:
    const uid_t before_;
};

std::size_t openDescriptors() {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        static_cast<void>(entry);
        ++count;
    }
    return count;
}

void setTimes(const std::string& path, timespec accessed, timespec modified) {
    const timespec times[2] = {accessed, modified};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW), 0)
        << std::strerror(errno);
}

std::string textOf(std::span<const std::byte> bytes) {
    std::string text;
    for (const std::byte byte : bytes) {
        text += std::to_integer<char>(byte);
    }
    return text;
}

/// The error number of a failed call; 0 on success.
template <typename Value>
int errorOf(const Result<Value>& result) {
    return result ? 0 : result.error().code;
}

class FileSystemTest : public testing::Test {
 protected:
    using Listed = std::map<std::string, EntryType>;

    Descriptor folder(const std::string& path) {
        Result<Descriptor> opened = fileSystem_.openDirectory(path);
        EXPECT_TRUE(opened) << path << ": " << std::strerror(errorOf(opened));
        return opened ? std::move(*opened) : Descriptor();
    }

    Descriptor file(const std::string& path) {
        Result<Descriptor> opened = fileSystem_.openFile(path);
        EXPECT_TRUE(opened) << path << ": " << std::strerror(errorOf(opened));
        return opened ? std::move(*opened) : Descriptor();
    }

    /// All entries of a folder; fails on a repeated one.
    Listed list(const std::string& path, std::size_t blockBytes = 32 * 1024) {
        const Descriptor opened = folder(path);
        EntryBlock block(blockBytes);
        Listed listed;
        for (Result<bool> more = true; opened.isOpen();) {
            more = fileSystem_.listEntries(opened, block);
            EXPECT_TRUE(more) << std::strerror(errorOf(more));
            if (!more || !*more) {
                EXPECT_TRUE(block.entries().empty());
                break;
            }
            EXPECT_FALSE(block.entries().empty());
            for (const EntryBlock::Entry& entry : block.entries()) {
                EXPECT_TRUE(listed.emplace(entry.name, entry.type).second) << entry.name;
            }
        }
        return listed;
    }

    FileAttributes attributesAt(const std::string& folderPath, const char* name) {
        const Result<FileAttributes> attributes =
            fileSystem_.attributesAt(folder(folderPath), name);
        EXPECT_TRUE(attributes) << name << ": " << std::strerror(errorOf(attributes));
        return attributes ? *attributes : FileAttributes{};
    }

    std::string read(const Descriptor& opened, std::uint64_t offset, std::size_t most) {
        std::vector<std::byte> bytes(most);
        const Result<std::size_t> got = fileSystem_.readAt(opened, offset, bytes);
        EXPECT_TRUE(got) << std::strerror(errorOf(got));
        return got ? textOf(std::span(bytes).first(*got)) : std::string();
    }

    FileTree tree_;
    FileSystem& fileSystem_ = systemFileSystem();
};

using FileSystemListing = FileSystemTest;
using FileSystemAttributes = FileSystemTest;
using FileSystemOpening = FileSystemTest;
using FileSystemReading = FileSystemTest;
using FileSystemDevices = FileSystemTest;

TEST_F(FileSystemListing, IsEmptyForAnEmptyFolder) {
    EXPECT_TRUE(list(tree_.path()).empty());
}

TEST_F(FileSystemListing, DistinguishesFilesFoldersAndOthers) {
    tree_.writeFile("file");
    tree_.makeFolder("folder");
    tree_.makeLink("link to file", "file");
    tree_.makeLink("link to folder", "folder");
    tree_.makeLink("link to nothing", "nothing");
    tree_.makePipe("pipe");
    tree_.makeSocket("socket");
    EXPECT_EQ(list(tree_.path()), (Listed{{"file", EntryType::regular},
                                          {"folder", EntryType::directory},
                                          {"link to file", EntryType::other},
                                          {"link to folder", EntryType::other},
                                          {"link to nothing", EntryType::other},
                                          {"pipe", EntryType::other},
                                          {"socket", EntryType::other}}));
}

TEST_F(FileSystemListing, OmitsOnlyDotAndDotDot) {
    for (const char* name : {"...", "..a", ".a", ". ", ".. ", "a."}) {
        tree_.writeFile(name);
    }
    EXPECT_EQ(list(tree_.path()).size(), 6u);
}

TEST_F(FileSystemListing, ReturnsNamesByteForByte) {
    Listed expected;
    for (int byte = 1; byte < 256; ++byte) {
        const auto letter = static_cast<char>(byte);
        if (letter == '/') {
            continue;
        }
        for (const std::string& name :
             {std::string{'x', letter}, std::string{letter, 'x', '.', 't'}}) {
            tree_.writeFile(name);
            expected.emplace(name, EntryType::regular);
        }
    }
    EXPECT_EQ(list(tree_.path()), expected);
}

TEST_F(FileSystemListing, ReturnsTheLongestNamesInTheSmallestBatches) {
    Listed expected;
    for (int number = 100; number < 200; ++number) {
        const std::string name = std::to_string(number) + std::string(252, 'n');
        tree_.writeFile(name);
        expected.emplace(name, EntryType::regular);
    }
    EXPECT_EQ(list(tree_.path(), 4096), expected);
}

TEST_F(FileSystemListing, ReturnsEachOfAHundredThousandEntriesOnce) {
    constexpr std::size_t count = 100'000;
    tree_.makeFiles("many", count);
    const Listed listed = list(tree_.pathOf("many"));
    EXPECT_EQ(listed.size(), count);
    for (std::size_t number = 0; number < count; ++number) {
        ASSERT_TRUE(listed.contains(std::to_string(number) + ".txt")) << number;
    }
}

TEST_F(FileSystemListing, ReturnsTheSameOrderEachTime) {
    tree_.makeFiles("many", 3000);
    const auto order = [&](std::size_t blockBytes) {
        const Descriptor opened = folder(tree_.pathOf("many"));
        EntryBlock block(blockBytes);
        std::vector<std::string> names;
        while (*fileSystem_.listEntries(opened, block)) {
            for (const EntryBlock::Entry& entry : block.entries()) {
                names.emplace_back(entry.name);
            }
        }
        return names;
    };
    const std::vector<std::string> first = order(32 * 1024);
    EXPECT_EQ(first.size(), 3000u);
    EXPECT_EQ(order(32 * 1024), first);
    EXPECT_EQ(order(4096), first);
}

TEST_F(FileSystemListing, StaysAtItsEnd) {
    tree_.writeFile("file");
    const Descriptor opened = folder(tree_.path());
    EntryBlock block(4096);
    EXPECT_TRUE(*fileSystem_.listEntries(opened, block));
    EXPECT_FALSE(*fileSystem_.listEntries(opened, block));
    EXPECT_FALSE(*fileSystem_.listEntries(opened, block));
}

TEST_F(FileSystemListing, FailsForAFileWithAnEmptyBlock) {
    tree_.writeFile("file");
    EntryBlock block(4096);
    ASSERT_TRUE(*fileSystem_.listEntries(folder(tree_.path()), block));
    ASSERT_EQ(block.entries().size(), 1u);
    const Descriptor opened = file(tree_.pathOf("file"));
    EXPECT_EQ(errorOf(fileSystem_.listEntries(opened, block)), ENOTDIR);
    EXPECT_TRUE(block.entries().empty());
}

TEST_F(FileSystemListing, IsEmptyForARemovedFolder) {
    const std::string path = tree_.makeFolder("folder");
    const Descriptor opened = folder(path);
    ASSERT_EQ(::rmdir(path.c_str()), 0);
    EntryBlock block(4096);
    const Result<bool> more = fileSystem_.listEntries(opened, block);
    EXPECT_FALSE(more && *more);
    EXPECT_TRUE(block.entries().empty());
}

TEST_F(FileSystemAttributes, HoldSizeTimesAndIdentity) {
    const std::string path = tree_.writeFile("file", "12345");
    setTimes(path, {1'600'000'000, 0}, {1'700'000'000, 123'456'789});
    const FileAttributes attributes = attributesAt(tree_.path(), "file");
    struct stat expected{};
    ASSERT_EQ(::lstat(path.c_str(), &expected), 0);
    EXPECT_EQ(attributes.type, EntryType::regular);
    EXPECT_FALSE(attributes.immutable);
    EXPECT_EQ(attributes.size, 5u);
    EXPECT_EQ(attributes.modified, Timestamp(1'700'000'000'123'456'789ns));
    EXPECT_EQ(attributes.identity.device, expected.st_dev);
    EXPECT_EQ(attributes.identity.inode, expected.st_ino);
}

TEST_F(FileSystemAttributes, HoldTheTimeOfCreation) {
    const auto before = std::chrono::system_clock::now();
    const std::string path = tree_.writeFile("file");
    setTimes(path, {1, 0}, {2, 0});
    const std::optional<Timestamp> created = attributesAt(tree_.path(), "file").created;
    if (!created) {
        struct statx answer{};
        ::statx(AT_FDCWD, path.c_str(), 0, STATX_BTIME, &answer);
        EXPECT_EQ(answer.stx_mask & STATX_BTIME, 0u);
        GTEST_SKIP() << "the temporary folder's file system records no time of creation";
    }
    // The clock of file systems is up to 10 ms behind.
    EXPECT_GE(*created, before - 100ms);
    EXPECT_LE(*created, std::chrono::system_clock::now());
}

TEST_F(FileSystemAttributes, HoldTimesBeforeTheFirstSecond) {
    const std::string path = tree_.writeFile("file");
    setTimes(path, {0, 0}, {-2, 500'000'000});
    EXPECT_EQ(attributesAt(tree_.path(), "file").modified, Timestamp(-1'500'000'000ns));
    setTimes(path, {0, 0}, {0, 0});
    EXPECT_EQ(attributesAt(tree_.path(), "file").modified, Timestamp(0ns));
}

TEST_F(FileSystemAttributes, ClampTimesOutOfRange) {
    const std::string path = tree_.writeFile("file");
    struct Row {
        time_t seconds;
        Timestamp nearest;
    };
    for (const Row& row : {Row{10'413'792'000, Timestamp::max()},
                           Row{-10'413'792'000, Timestamp(-9'223'372'035s)}}) {
        setTimes(path, {0, 0}, {row.seconds, 0});
        struct stat kept{};
        ASSERT_EQ(::stat(path.c_str(), &kept), 0);
        if (kept.st_mtim.tv_sec != row.seconds) {
            std::cout << "The temporary folder's file system records no time as far as "
                      << row.seconds << " s\n";
            continue;
        }
        EXPECT_EQ(attributesAt(tree_.path(), "file").modified, row.nearest) << row.seconds;
    }
}

TEST_F(FileSystemAttributes, HoldSizesBeyondFourGibibytes) {
    const std::string path = tree_.writeFile("file");
    ASSERT_EQ(::truncate(path.c_str(), 5'368'709'121), 0);
    EXPECT_EQ(attributesAt(tree_.path(), "file").size, 5'368'709'121u);
}

TEST_F(FileSystemAttributes, AreThoseOfALinkItself) {
    tree_.writeFile("file", "12345");
    tree_.makeFolder("folder");
    tree_.makeLink("link to file", "file");
    tree_.makeLink("link to folder", "folder");
    EXPECT_EQ(attributesAt(tree_.path(), "link to file").type, EntryType::other);
    EXPECT_EQ(attributesAt(tree_.path(), "link to folder").type, EntryType::other);
    EXPECT_FALSE(attributesAt(tree_.path(), "link to file").identity ==
                 attributesAt(tree_.path(), "file").identity);
}

TEST_F(FileSystemAttributes, DistinguishFoldersPipesAndSocketsFromFiles) {
    tree_.makeFolder("folder");
    tree_.makePipe("pipe");
    tree_.makeSocket("socket");
    EXPECT_EQ(attributesAt(tree_.path(), "folder").type, EntryType::directory);
    EXPECT_EQ(attributesAt(tree_.path(), "pipe").type, EntryType::other);
    EXPECT_EQ(attributesAt(tree_.path(), "socket").type, EntryType::other);
    EXPECT_EQ(attributesAt("/dev", "null").type, EntryType::other);
}

TEST_F(FileSystemAttributes, AreTheSameByNameAndByDescriptor) {
    const std::string path = tree_.writeFile("folder/file", "12345");
    const FileAttributes byName = attributesAt(tree_.pathOf("folder"), "file");
    const Result<FileAttributes> open = fileSystem_.attributesOf(file(path));
    ASSERT_TRUE(open);
    EXPECT_EQ(open->type, EntryType::regular);
    EXPECT_EQ(open->size, 5u);
    EXPECT_EQ(open->modified, byName.modified);
    EXPECT_EQ(open->created, byName.created);
    EXPECT_EQ(open->identity, byName.identity);
    const Result<FileAttributes> openFolder =
        fileSystem_.attributesOf(folder(tree_.pathOf("folder")));
    ASSERT_TRUE(openFolder);
    EXPECT_EQ(openFolder->type, EntryType::directory);
    EXPECT_EQ(openFolder->identity, attributesAt(tree_.path(), "folder").identity);
}

TEST_F(FileSystemAttributes, OfATargetFollowTheLink) {
    tree_.writeFile("folder/file", "12345");
    tree_.makeLink("link to file", "folder/file");
    tree_.makeLink("link to folder", tree_.pathOf("folder"));
    tree_.makeLink("link to link", "link to folder");
    tree_.makeLink("link to nothing", "nowhere");
    tree_.makeLink("link to itself", "link to itself");
    const Descriptor opened = folder(tree_.path());
    const auto target = [&](const char* name) {
        return fileSystem_.targetAttributesAt(opened, name);
    };
    EXPECT_EQ(target("link to file")->type, EntryType::regular);
    EXPECT_EQ(target("link to file")->size, 5u);
    EXPECT_EQ(target("link to link")->identity, attributesAt(tree_.path(), "folder").identity);
    EXPECT_EQ(target("folder")->identity, attributesAt(tree_.path(), "folder").identity);
    EXPECT_EQ(errorOf(target("link to nothing")), ENOENT);
    EXPECT_EQ(errorOf(target("link to itself")), ELOOP);
}

TEST_F(FileSystemAttributes, AtAPathAreThoseOfTheEntryItself) {
    const std::string path = tree_.writeFile("folder/file", "12345");
    const std::string link = tree_.makeLink("link", path);
    const std::string pipe = tree_.makePipe("pipe");
    EXPECT_EQ(fileSystem_.attributesAtPath(path)->size, 5u);
    EXPECT_EQ(fileSystem_.attributesAtPath(path)->identity,
              attributesAt(tree_.pathOf("folder"), "file").identity);
    EXPECT_EQ(fileSystem_.attributesAtPath(tree_.path())->type, EntryType::directory);
    EXPECT_EQ(fileSystem_.attributesAtPath(link)->type, EntryType::other);
    EXPECT_EQ(fileSystem_.attributesAtPath(pipe)->type, EntryType::other);
    EXPECT_EQ(errorOf(fileSystem_.attributesAtPath(tree_.pathOf("missing"))), ENOENT);
    EXPECT_EQ(errorOf(fileSystem_.attributesAtPath(path + "/inside")), ENOTDIR);
    EXPECT_EQ(errorOf(fileSystem_.attributesAtPath("")), ENOENT);
}

TEST_F(FileSystemAttributes, AtAPathNeedNoReadPermission) {
    const std::string path = tree_.writeFile("closed", "123");
    ASSERT_EQ(::chmod(path.c_str(), 0), 0);
    ASSERT_EQ(::chmod(tree_.path().c_str(), 0755), 0);
    const WithoutRights guest;
    EXPECT_EQ(fileSystem_.attributesAtPath(path)->size, 3u);
}

TEST_F(FileSystemAttributes, AtAPathOfAnyLength) {
    const std::string bottom = tree_.makeChain("", std::string(200, 'd'), 60, {"file"}, "123");
    ASSERT_GT(bottom.size(), 10'000u);
    EXPECT_EQ(fileSystem_.attributesAtPath(bottom + "/file")->size, 3u);
}

TEST_F(FileSystemAttributes, HaveOneIdentityForAllHardLinks) {
    const std::string path = tree_.writeFile("one");
    ASSERT_EQ(::link(path.c_str(), tree_.pathOf("other").c_str()), 0);
    tree_.writeFile("third");
    EXPECT_EQ(attributesAt(tree_.path(), "one").identity,
              attributesAt(tree_.path(), "other").identity);
    EXPECT_FALSE(attributesAt(tree_.path(), "one").identity ==
                 attributesAt(tree_.path(), "third").identity);
}

TEST_F(FileSystemAttributes, ReportTheImmutableFlag) {
    const std::string path = tree_.writeFile("file");
    EXPECT_FALSE(attributesAt(tree_.path(), "file").immutable);
    const Descriptor opened = file(path);
    int flags = 0;
    ASSERT_GE(::ioctl(opened.number(), FS_IOC_GETFLAGS, &flags), 0) << std::strerror(errno);
    flags |= FS_IMMUTABLE_FL;
    if (::ioctl(opened.number(), FS_IOC_SETFLAGS, &flags) != 0) {
        GTEST_SKIP() << "no file can be made immutable: " << std::strerror(errno);
    }
    EXPECT_TRUE(attributesAt(tree_.path(), "file").immutable);
    EXPECT_TRUE(fileSystem_.attributesOf(opened)->immutable);
    flags &= ~FS_IMMUTABLE_FL;
    ASSERT_EQ(::ioctl(opened.number(), FS_IOC_SETFLAGS, &flags), 0);
    EXPECT_FALSE(attributesAt(tree_.path(), "file").immutable);
}

TEST_F(FileSystemAttributes, FailForAMissingEntry) {
    tree_.writeFile("file");
    const Descriptor opened = folder(tree_.path());
    EXPECT_EQ(errorOf(fileSystem_.attributesAt(opened, "missing")), ENOENT);
    EXPECT_EQ(errorOf(fileSystem_.attributesAt(opened, "file/inside")), ENOTDIR);
    EXPECT_EQ(errorOf(fileSystem_.attributesAt(opened, std::string(256, 'n').c_str())),
              ENAMETOOLONG);
}

TEST_F(FileSystemOpening, DoesNotFollowALinkToAFolder) {
    tree_.makeFolder("folder/inner");
    const std::string link = tree_.makeLink("link", "folder");
    EXPECT_NE(errorOf(fileSystem_.openDirectory(link)), 0);
    EXPECT_NE(errorOf(fileSystem_.openDirectoryAt(folder(tree_.path()), "link")), 0);
    // Links in other components are followed.
    EXPECT_EQ(errorOf(fileSystem_.openDirectory(link + "/inner")), 0);
}

TEST_F(FileSystemOpening, FollowsALinkToTheRootOfAWalk) {
    const std::string path = tree_.makeFolder("folder");
    tree_.makeLink("link", "folder");
    tree_.makeLink("link to link", "link");
    for (const char* name : {"folder", "link", "link to link"}) {
        const Result<Descriptor> opened = fileSystem_.openRootDirectory(tree_.pathOf(name));
        ASSERT_TRUE(opened) << name;
        EXPECT_EQ(fileSystem_.attributesOf(*opened)->identity,
                  attributesAt(tree_.path(), "folder").identity);
    }
}

TEST_F(FileSystemOpening, DoesNotFollowALinkToAFile) {
    tree_.writeFile("folder/file");
    EXPECT_EQ(errorOf(fileSystem_.openFile(tree_.makeLink("link", "folder/file"))), ELOOP);
    tree_.makeLink("link to folder", "folder");
    EXPECT_EQ(errorOf(fileSystem_.openFile(tree_.pathOf("link to folder/file"))), 0);
}

TEST_F(FileSystemOpening, RefusesAFileInPlaceOfAFolder) {
    const std::string path = tree_.writeFile("file");
    EXPECT_EQ(errorOf(fileSystem_.openRootDirectory(path)), ENOTDIR);
    EXPECT_EQ(errorOf(fileSystem_.openDirectory(path)), ENOTDIR);
    EXPECT_EQ(errorOf(fileSystem_.openDirectoryAt(folder(tree_.path()), "file")), ENOTDIR);
    EXPECT_EQ(errorOf(fileSystem_.openRootDirectory(tree_.makePipe("pipe"))), ENOTDIR);
}

TEST_F(FileSystemOpening, ReportsAMissingEntry) {
    tree_.makeFolder("folder");
    for (const char* name : {"missing", "missing/inner", "folder/missing"}) {
        const std::string path = tree_.pathOf(name);
        EXPECT_EQ(errorOf(fileSystem_.openRootDirectory(path)), ENOENT) << name;
        EXPECT_EQ(errorOf(fileSystem_.openDirectory(path)), ENOENT) << name;
        EXPECT_EQ(errorOf(fileSystem_.openFile(path)), ENOENT) << name;
    }
    EXPECT_EQ(errorOf(fileSystem_.openDirectoryAt(folder(tree_.path()), "missing")), ENOENT);
    EXPECT_EQ(errorOf(fileSystem_.openRootDirectory("")), ENOENT);
    EXPECT_EQ(errorOf(fileSystem_.openFile("")), ENOENT);
}

TEST_F(FileSystemOpening, ReportsAMissingPermission) {
    const std::string closedFile = tree_.writeFile("closed/file");
    const std::string closedFolder = tree_.pathOf("closed");
    const std::string file = tree_.writeFile("file");
    const Descriptor parent = folder(tree_.path());
    ASSERT_EQ(::chmod(tree_.path().c_str(), 0711), 0);
    ASSERT_EQ(::chmod(file.c_str(), 0), 0);
    ASSERT_EQ(::chmod(closedFolder.c_str(), 0), 0);
    {
        const WithoutRights here;
        EXPECT_EQ(errorOf(fileSystem_.openFile(file)), EACCES);
        EXPECT_EQ(errorOf(fileSystem_.openFile(closedFile)), EACCES);
        EXPECT_EQ(errorOf(fileSystem_.openRootDirectory(closedFolder)), EACCES);
        EXPECT_EQ(errorOf(fileSystem_.openDirectory(closedFolder)), EACCES);
        EXPECT_EQ(errorOf(fileSystem_.openDirectoryAt(parent, "closed")), EACCES);
        EXPECT_EQ(errorOf(fileSystem_.attributesAt(parent, "closed/file")), EACCES);
    }
    ASSERT_EQ(::chmod(closedFolder.c_str(), 0700), 0);
}

TEST_F(FileSystemOpening, ReadsFilesOfOthers) {
    // O_NOATIME is for the owner only.
    const std::string path = tree_.writeFile("file", "bytes");
    ASSERT_EQ(::chmod(tree_.path().c_str(), 0711), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0644), 0);
    const WithoutRights here;
    const Descriptor opened = file(path);
    ASSERT_TRUE(opened.isOpen());
    EXPECT_EQ(read(opened, 0, 10), "bytes");
    const Descriptor accounts = file("/etc/passwd");
    EXPECT_TRUE(accounts.isOpen());
}

TEST_F(FileSystemOpening, DoesNotBlockOnAPipeOrADevice) {
    const std::string pipe = tree_.makePipe("pipe");
    const std::string socket = tree_.makeSocket("socket");
    const auto begin = std::chrono::steady_clock::now();
    const Result<Descriptor> opened = fileSystem_.openFile(pipe);
    if (opened) {
        EXPECT_EQ(fileSystem_.attributesOf(*opened)->type, EntryType::other);
    }
    EXPECT_EQ(errorOf(fileSystem_.openFile(socket)), ENXIO);
    const Result<Descriptor> device = fileSystem_.openFile("/dev/null");
    if (device) {
        EXPECT_EQ(fileSystem_.attributesOf(*device)->type, EntryType::other);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
}

TEST_F(FileSystemOpening, OpensAFolderAsAFileOnlyForItsAttributes) {
    const Result<Descriptor> opened = fileSystem_.openFile(tree_.makeFolder("folder"));
    ASSERT_TRUE(opened);
    EXPECT_EQ(fileSystem_.attributesOf(*opened)->type, EntryType::directory);
    std::vector<std::byte> bytes(10);
    EXPECT_EQ(errorOf(fileSystem_.readAt(*opened, 0, bytes)), EISDIR);
}

TEST_F(FileSystemOpening, TakesPathsOfAnyLength) {
    const std::string bottom = tree_.makeChain("", std::string(200, 'd'), 60, {"file"});
    ASSERT_GT(bottom.size(), 12'000u);
    EXPECT_TRUE(file(bottom + "/file").isOpen());
    EXPECT_TRUE(folder(bottom).isOpen());
    EXPECT_EQ(errorOf(fileSystem_.openRootDirectory(bottom)), 0);
    EXPECT_EQ(list(bottom), (Listed{{"file", EntryType::regular}}));
}

TEST_F(FileSystemOpening, TakesPathsOfEveryLengthAroundPathMax) {
    // A chain of 3,900 bytes and more, and below it a folder and a file whose names make the paths
    // as long as wanted.
    const std::size_t each = 99;
    const std::size_t depth = (3'800 - tree_.path().size()) / (each + 1);
    const std::string chain = tree_.makeChain("", std::string(each, 'd'), depth);
    std::size_t tried = 0;
    for (std::size_t length = 4'085; length <= 4'105; ++length) {
        const std::size_t rest = length - chain.size() - 1;
        ASSERT_GT(rest, 200u);
        const std::string inner = chain + "/" + std::string(rest / 2, 'i');
        const std::string path = inner + "/" + std::string(rest - rest / 2 - 1, 'f');
        ASSERT_EQ(path.size(), length);
        const Descriptor parent = folder(chain);
        ASSERT_EQ(::mkdirat(parent.number(), std::string(rest / 2, 'i').c_str(), 0700) == 0 ||
                      errno == EEXIST,
                  true);
        const Descriptor innerFolder = folder(inner);
        const std::string name = path.substr(inner.size() + 1);
        ASSERT_EQ(::mknodat(innerFolder.number(), name.c_str(), S_IFREG | 0600, 0), 0);
        EXPECT_TRUE(file(path).isOpen()) << length;
        EXPECT_EQ(errorOf(fileSystem_.openDirectory(path)), ENOTDIR) << length;
        EXPECT_EQ(errorOf(fileSystem_.openFile(path + "x")), ENOENT) << length;
        ++tried;
    }
    EXPECT_EQ(tried, 21u);
}

TEST_F(FileSystemOpening, TakesLongPathsWithSeveralSlashesInARow) {
    const std::string bottom = tree_.makeChain("", "some folder", 500, {"file"});
    const std::string below = bottom.substr(tree_.path().size());
    for (const std::string_view slashes : {"//", "///", "////"}) {
        std::string path = tree_.path();
        for (const char letter : below) {
            if (letter == '/') {
                path += slashes;
            } else {
                path += letter;
            }
        }
        path += "/file";
        // Moves the position of the cut over a whole step.
        for (std::size_t shift = 0; shift < 20; ++shift) {
            const std::string shifted = std::string(shift, '/') + path;
            EXPECT_EQ(errorOf(fileSystem_.openFile(shifted)), 0) << slashes << ' ' << shift;
        }
    }
}

TEST_F(FileSystemOpening, TakesLongPathsWithTrailingSlashes) {
    const std::string bottom = tree_.makeChain("", "some folder", 500);
    // Cuts inside the last name and behind it.
    for (std::size_t length = 4'070; length <= 4'120; ++length) {
        const std::string path = bottom.substr(0, bottom.find('/', length - 10)) + "//////////";
        const std::string shifted = std::string(length % 12, '/') + path;
        EXPECT_EQ(errorOf(fileSystem_.openRootDirectory(shifted)), 0) << shifted.size();
    }
}

TEST_F(FileSystemOpening, ReportsErrorsInLongPaths) {
    const std::string bottom = tree_.makeChain("", std::string(200, 'd'), 60, {"file"});
    const Descriptor opened = folder(bottom);
    ASSERT_EQ(::symlinkat("file", opened.number(), "link"), 0);
    ASSERT_EQ(::symlinkat(".", opened.number(), "here"), 0);
    EXPECT_EQ(errorOf(fileSystem_.openFile(bottom + "/missing")), ENOENT);
    EXPECT_EQ(errorOf(fileSystem_.openFile(bottom + "/file/inside")), ENOTDIR);
    EXPECT_EQ(errorOf(fileSystem_.openFile(bottom + "/link")), ELOOP);
    EXPECT_NE(errorOf(fileSystem_.openDirectory(bottom + "/here")), 0);
    EXPECT_EQ(errorOf(fileSystem_.openRootDirectory(bottom + "/here")), 0);
    // Missing in the first step, in the middle, and a file in the middle.
    std::string missing = bottom;
    missing[tree_.path().size() + 50] = 'x';
    EXPECT_EQ(errorOf(fileSystem_.openFile(missing + "/file")), ENOENT);
    missing = bottom;
    missing[bottom.size() / 2] = 'x';
    EXPECT_EQ(errorOf(fileSystem_.openDirectory(missing)), ENOENT);
    const std::string beyond = bottom + "/file/" + std::string(200, 'd');
    EXPECT_EQ(errorOf(fileSystem_.openFile(beyond + "/file")), ENOTDIR);
}

TEST_F(FileSystemOpening, RefusesNamesThatAreTooLong) {
    const std::size_t before = openDescriptors();
    for (const std::size_t length : {256u, 4'094u, 4'095u, 4'096u, 5'000u, 20'000u}) {
        const std::string path = tree_.path() + "/" + std::string(length, 'n');
        EXPECT_EQ(errorOf(fileSystem_.openFile(path)), ENAMETOOLONG) << length;
        EXPECT_EQ(errorOf(fileSystem_.openDirectory(path + "/file")), ENAMETOOLONG) << length;
        const std::string name = path.substr(tree_.path().size());
        EXPECT_EQ(errorOf(fileSystem_.openRootDirectory(name)), ENAMETOOLONG) << length;
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(FileSystemOpening, ReachesFiveThousandLevels) {
    const std::string bottom = tree_.makeChain("", "level", 5'000, {"file"});
    EXPECT_TRUE(file(bottom + "/file").isOpen());
    EXPECT_EQ(list(bottom), (Listed{{"file", EntryType::regular}}));
    Descriptor at = folder(tree_.path());
    for (int level = 0; level < 5'000; ++level) {
        Result<Descriptor> next = fileSystem_.openDirectoryAt(at, "level");
        ASSERT_TRUE(next) << level;
        at = std::move(*next);
    }
    EXPECT_EQ(fileSystem_.attributesAt(at, "file")->type, EntryType::regular);
    EXPECT_EQ(fileSystem_.attributesOf(at)->identity,
              fileSystem_.attributesOf(folder(bottom))->identity);
}

TEST_F(FileSystemOpening, LeavesNoDescriptorBehind) {
    const std::string bottom = tree_.makeChain("", std::string(200, 'd'), 60, {"file"});
    const std::string path = tree_.writeFile("file", "bytes");
    const std::string link = tree_.makeLink("link", "file");
    const std::size_t before = openDescriptors();
    for (int round = 0; round < 20; ++round) {
        for (const std::string& each :
             {bottom, bottom + "/file", bottom + "/missing/" + std::string(200, 'd'),
              bottom + "/" + std::string(5'000, 'n'), path, link, tree_.pathOf("missing")}) {
            static_cast<void>(fileSystem_.openFile(each));
            static_cast<void>(fileSystem_.openDirectory(each));
            static_cast<void>(fileSystem_.openRootDirectory(each));
        }
        list(tree_.path());
        EXPECT_EQ(read(file(path), 0, 10), "bytes");
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(FileSystemOpening, DescriptorsAreNotInherited) {
    const Descriptor opened = file(tree_.writeFile("file"));
    const Descriptor openedFolder = folder(tree_.path());
    EXPECT_NE(::fcntl(opened.number(), F_GETFD) & FD_CLOEXEC, 0);
    EXPECT_NE(::fcntl(openedFolder.number(), F_GETFD) & FD_CLOEXEC, 0);
}

TEST_F(FileSystemReading, ReturnsTheContent) {
    const Descriptor opened = file(tree_.writeFile("file", "0123456789"));
    EXPECT_EQ(read(opened, 0, 10), "0123456789");
    EXPECT_EQ(read(opened, 0, 4), "0123");
    EXPECT_EQ(read(opened, 4, 3), "456");
    EXPECT_EQ(read(opened, 4, 0), "");
}

TEST_F(FileSystemReading, ReturnsLessAtTheEnd) {
    const Descriptor opened = file(tree_.writeFile("file", "0123456789"));
    EXPECT_EQ(read(opened, 0, 100), "0123456789");
    EXPECT_EQ(read(opened, 7, 100), "789");
    EXPECT_EQ(read(opened, 10, 100), "");
    EXPECT_EQ(read(opened, 1'000'000, 100), "");
    const Descriptor empty = file(tree_.writeFile("empty"));
    EXPECT_EQ(read(empty, 0, 100), "");
}

TEST_F(FileSystemReading, StopsAfterEnoughBytes) {
    const Descriptor opened = file(tree_.writeFile("file", "0123456789"));
    std::vector<std::byte> room(100);
    const auto readAtLeast = [&](std::uint64_t offset, std::size_t enough) {
        const Result<std::size_t> got = fileSystem_.readAtLeast(opened, offset, room, enough);
        return got ? textOf(std::span(room).first(*got)) : "failed";
    };
    EXPECT_EQ(readAtLeast(0, 10), "0123456789");
    EXPECT_EQ(readAtLeast(0, 20), "0123456789");
    EXPECT_EQ(readAtLeast(8, 1), "89");
    EXPECT_EQ(readAtLeast(10, 1), "");
}

TEST_F(FileSystemReading, ReachesBeyondFourGibibytes) {
    const std::string path = tree_.writeFile("file");
    const int number = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(::pwrite(number, "tail", 4, 5'368'709'120), 4);
    ::close(number);
    const Descriptor opened = file(path);
    EXPECT_EQ(read(opened, 5'368'709'118, 100), std::string("\0\0tail", 6));
    EXPECT_EQ(read(opened, 0, 2), std::string("\0\0", 2));
}

TEST_F(FileSystemReading, RepeatsShortReads) {
    // More than one read() returns on any system.
    const std::string bytes(20'000'000, 'x');
    const Descriptor opened = file(tree_.writeFile("file", bytes));
    EXPECT_EQ(read(opened, 0, 20'000'000), bytes);
}

TEST_F(FileSystemReading, SeesChangesOfTheFile) {
    const std::string path = tree_.writeFile("file", "0123456789");
    const Descriptor opened = file(path);
    ASSERT_EQ(::truncate(path.c_str(), 4), 0);
    EXPECT_EQ(read(opened, 0, 10), "0123");
    EXPECT_EQ(fileSystem_.attributesOf(opened)->size, 4u);
}

TEST_F(FileSystemReading, ContinuesWithADeletedOrReplacedFile) {
    const std::string path = tree_.writeFile("file", "first");
    const Descriptor opened = file(path);
    ASSERT_EQ(::unlink(path.c_str()), 0);
    EXPECT_EQ(read(opened, 0, 10), "first");
    tree_.writeFile("file", "second");
    EXPECT_EQ(read(opened, 0, 10), "first");
    EXPECT_FALSE(fileSystem_.attributesOf(opened)->identity ==
                 fileSystem_.attributesOf(file(path))->identity);
}

TEST_F(FileSystemReading, KeepsTheAccessTime) {
    const std::string path = tree_.writeFile("file", "bytes");
    // An access time before the modification time: relatime would update it.
    setTimes(path, {1'000'000'000, 0}, {1'700'000'000, 0});
    {
        const Descriptor opened = file(path);
        EXPECT_EQ(read(opened, 0, 10), "bytes");
        std::vector<std::byte> bytes(5);
        EXPECT_TRUE(fileSystem_.readCachedAt(opened, 0, bytes));
    }
    struct stat after{};
    ASSERT_EQ(::stat(path.c_str(), &after), 0);
    EXPECT_EQ(after.st_atim.tv_sec, 1'000'000'000);
}

TEST_F(FileSystemReading, CachedReturnsNoMoreThanTheFile) {
    std::string bytes;
    for (int number = 0; number < 100'000; ++number) {
        bytes += std::to_string(number);
    }
    const Descriptor opened = file(tree_.writeFile("file", bytes));
    EXPECT_EQ(read(opened, 0, bytes.size()), bytes);
    std::vector<std::byte> room(bytes.size() + 10'000);
    for (const std::size_t offset : {std::size_t{0}, std::size_t{4'095}, std::size_t{300'000},
                                     bytes.size() - 1, bytes.size(), bytes.size() + 1'000}) {
        const Result<std::size_t> got = fileSystem_.readCachedAt(opened, offset, room);
        ASSERT_TRUE(got);
        ASSERT_LE(*got, bytes.size() - std::min(offset, bytes.size()));
        EXPECT_EQ(textOf(std::span(room).first(*got)),
                  bytes.substr(std::min(offset, bytes.size()), *got));
    }
    EXPECT_EQ(*fileSystem_.readCachedAt(opened, 0, std::span<std::byte>()), 0u);
}

TEST_F(FileSystemReading, CachedReturnsTheBytesOrNothing) {
    const std::string bytes(1'000'000, 'b');
    const std::string path = tree_.writeFile("file", bytes);
    const Descriptor opened = file(path);
    fileSystem_.disableReadAhead(opened);
    ::fsync(opened.number());
    ::posix_fadvise(opened.number(), 0, 0, POSIX_FADV_DONTNEED);
    std::vector<std::byte> room(bytes.size());
    const Result<std::size_t> got = fileSystem_.readCachedAt(opened, 0, room);
    ASSERT_TRUE(got);
    EXPECT_EQ(textOf(std::span(room).first(*got)), bytes.substr(0, *got));
    // The rest can be read in any case.
    EXPECT_EQ(read(opened, *got, bytes.size()), bytes.substr(*got));
}

TEST_F(FileSystemReading, TellsWhetherAByteIsCached) {
    const Descriptor opened = file(tree_.writeFile("file", std::string(100'000, 'b')));
    EXPECT_TRUE(fileSystem_.isCached(opened, 0));
    EXPECT_TRUE(fileSystem_.isCached(opened, 99'999));
    EXPECT_FALSE(fileSystem_.isCached(opened, 200'000));
}

TEST_F(FileSystemReading, DoesNotReadAByteToTellWhetherItIsCached) {
    const Descriptor opened = file(tree_.writeFile("file", std::string(1'000'000, 'b')));
    ::fsync(opened.number());
    ::posix_fadvise(opened.number(), 0, 0, POSIX_FADV_DONTNEED);
    const bool isCached = fileSystem_.isCached(opened, 500'000);
    for (int times = 0; times < 100; ++times) {
        EXPECT_EQ(fileSystem_.isCached(opened, 500'000), isCached);
    }
}

TEST_F(FileSystemReading, FailsForAFolder) {
    const std::string path = tree_.writeFile("file", "bytes");
    const Descriptor opened = folder(tree_.path());
    std::vector<std::byte> room(10);
    EXPECT_EQ(errorOf(fileSystem_.readAt(opened, 0, room)), EISDIR);
    EXPECT_EQ(*fileSystem_.readCachedAt(opened, 0, room), 0u);
}

TEST_F(FileSystemReading, WorksOnManyThreadsWithOneFile) {
    std::string bytes;
    for (int number = 0; number < 50'000; ++number) {
        bytes += std::to_string(number);
    }
    const Descriptor opened = file(tree_.writeFile("file", bytes));
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (std::size_t thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            std::vector<std::byte> room(1'000);
            for (std::size_t offset = thread * 7; offset + 1'000 < bytes.size(); offset += 997) {
                const Result<std::size_t> got = fileSystem_.readAt(opened, offset, room);
                wrong += !got || textOf(std::span(room).first(*got)) != bytes.substr(offset, 1'000);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
}

TEST_F(FileSystemDevices, OfTheKernelArePseudoFileSystems) {
    std::size_t asked = 0;
    for (const char* path : {"/proc", "/sys", "/dev/pts"}) {
        const Result<Descriptor> opened = fileSystem_.openRootDirectory(path);
        if (!opened) {
            std::cout << path << ": " << std::strerror(errorOf(opened)) << '\n';
            continue;
        }
        EXPECT_TRUE(
            fileSystem_.isPseudoFileSystem(fileSystem_.attributesOf(*opened)->identity.device))
            << path;
        ++asked;
    }
    EXPECT_GT(asked, 0u);
}

TEST_F(FileSystemDevices, OfTheTemporaryFolderAreNotPseudo) {
    const std::uint64_t device = attributesAt(tree_.path(), ".").identity.device;
    EXPECT_FALSE(fileSystem_.isPseudoFileSystem(device));
    EXPECT_FALSE(fileSystem_.isPseudoFileSystem(device));
}

TEST_F(FileSystemDevices, UnknownOnesAreOrdinary) {
    // Major number 4095 is not assigned.
    EXPECT_FALSE(fileSystem_.isPseudoFileSystem(0xFFF00));
    EXPECT_FALSE(fileSystem_.rotationalDiskOf(0xFFF00));
}

TEST_F(FileSystemDevices, AreQueriedOnManyThreads) {
    const std::uint64_t device = attributesAt(tree_.path(), ".").identity.device;
    std::atomic<int> pseudo{0};
    std::vector<std::thread> threads;
    for (std::uint64_t thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            for (std::uint64_t number = 0; number < 50; ++number) {
                pseudo += fileSystem_.isPseudoFileSystem(device) ? 1 : 0;
                static_cast<void>(fileSystem_.rotationalDiskOf(device));
                static_cast<void>(
                    fileSystem_.rotationalDiskOf(0xFFF00 + thread * 10 + number % 10));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(pseudo, 0);
}

TEST_F(FileSystemDevices, AreRecognisedWhenTheyAreMountedLater) {
    const std::string path = tree_.makeFolder("mounted");
    const std::uint64_t below = attributesAt(tree_.path(), "mounted").identity.device;
    EXPECT_FALSE(fileSystem_.isPseudoFileSystem(below));
    const Mount mount("none", path, "proc");
    if (!mount) {
        return;
    }
    const std::uint64_t device = attributesAt(tree_.path(), "mounted").identity.device;
    EXPECT_NE(device, below);
    EXPECT_TRUE(fileSystem_.isPseudoFileSystem(device));
}

TEST_F(FileSystemDevices, AreQueriedAgainWhenANumberIsReused) {
    const std::string path = tree_.makeFolder("mounted");
    std::optional<std::uint64_t> number;
    for (const char* type : {"proc", "tmpfs", "proc"}) {
        const Mount mount("none", path, type);
        if (!mount) {
            return;
        }
        const std::uint64_t device = fileSystem_.attributesOf(folder(path))->identity.device;
        if (number && device != *number) {
            std::cout << "The system gives each mount a number of its own\n";
            return;
        }
        number = device;
        EXPECT_EQ(fileSystem_.isPseudoFileSystem(device), std::string_view(type) == "proc") << type;
    }
}

TEST_F(FileSystemTest, ReportsTheDescriptorLimit) {
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit lower = before;
    lower.rlim_cur = 99;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &lower), 0);
    EXPECT_EQ(fileSystem_.descriptorLimit(), 99u);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
}

TEST_F(FileSystemTest, ReportsThatDescriptorsRanOut) {
    const std::string path = tree_.writeFile("file");
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit lower = before;
    lower.rlim_cur = openDescriptors() + 5;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &lower), 0);
    std::vector<Descriptor> opened;
    int error = 0;
    while (error == 0 && opened.size() < 1'000) {
        Result<Descriptor> next = fileSystem_.openFile(path);
        error = errorOf(next);
        if (next) {
            opened.push_back(std::move(*next));
        }
    }
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_EQ(error, EMFILE);
    opened.clear();
    EXPECT_TRUE(file(path).isOpen());
}

TEST_F(FileSystemTest, ClosesADescriptorWithItsObject) {
    const std::string path = tree_.writeFile("file");
    const std::size_t before = openDescriptors();
    {
        const Descriptor opened = file(path);
        EXPECT_TRUE(opened.isOpen());
        EXPECT_EQ(openDescriptors(), before + 1);
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(FileSystemTest, ClosesADescriptorOnce) {
    const std::string path = tree_.writeFile("file");
    Descriptor first = file(path);
    const int number = first.number();
    first.reset();
    EXPECT_FALSE(first.isOpen());
    // The number is reused; a second reset must not close it.
    const Descriptor second = file(path);
    EXPECT_EQ(second.number(), number);
    first.reset();
    EXPECT_GE(::fcntl(second.number(), F_GETFD), 0);
}

TEST_F(FileSystemTest, MovesADescriptor) {
    const std::string path = tree_.writeFile("file", "bytes");
    const std::size_t before = openDescriptors();
    Descriptor first = file(path);
    const int number = first.number();
    Descriptor second(std::move(first));
    EXPECT_EQ(second.number(), number);
    Descriptor third = file(path);
    third = std::move(second);
    EXPECT_EQ(third.number(), number);
    EXPECT_EQ(openDescriptors(), before + 1);
    EXPECT_EQ(read(third, 0, 10), "bytes");
    Descriptor& same = third;
    third = std::move(same);
    EXPECT_TRUE(third.isOpen());
    EXPECT_FALSE(std::is_copy_constructible_v<Descriptor>);
}

}  // namespace
}  // namespace tarvin
