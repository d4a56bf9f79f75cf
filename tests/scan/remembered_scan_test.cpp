#include "platform/file_lock.h"
#include "scan/remembered_scan_fixture.h"
#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/mount.h"
#include "support/pairwise_finder.h"
#include "support/secret_change.h"
#include "support/test_seeds.h"
#include "support/waiting.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

/// Sizes that are compared in each of the ways: whole, and in parts.
constexpr std::size_t smallFile = 300;
constexpr std::size_t largeFile = 40'000;

class RememberedScanOf : public RememberedScan, public testing::WithParamInterface<std::size_t> {};

INSTANTIATE_TEST_SUITE_P(Sizes, RememberedScanOf, testing::Values(smallFile, largeFile));

TEST_P(RememberedScanOf, UnchangedFilesOpensNone) {
    write("a.jpg", GetParam(), 1);
    write("b.jpg", GetParam(), 1);
    write("c.jpg", GetParam(), 2);
    write("d.jpg", GetParam() + 1, 1);
    EXPECT_EQ(scan().opened, (Names{"a.jpg", "b.jpg", "c.jpg"}));
    const Outcome second = scan();
    EXPECT_EQ(second.opened, Names{});
    EXPECT_EQ(second.sets, (NameSets{{"a.jpg", "b.jpg"}}));
    EXPECT_EQ(scan().opened, Names{});
}

TEST_P(RememberedScanOf, AnAddedFileReadsOneFileOfEachContent) {
    write("a.jpg", GetParam(), 1);
    write("b.jpg", GetParam(), 1);
    write("c.jpg", GetParam(), 2);
    scan();
    write("d.jpg", GetParam(), 1);
    const Outcome second = scan();
    EXPECT_EQ(second.opened, (Names{"a.jpg", "c.jpg", "d.jpg"}));
    EXPECT_EQ(second.sets, (NameSets{{"a.jpg", "b.jpg", "d.jpg"}}));
    const Outcome third = scan();
    EXPECT_EQ(third.opened, Names{});
    EXPECT_EQ(third.sets, second.sets);
}

TEST_P(RememberedScanOf, AnAddedFileThatIsDifferentKeepsTheSets) {
    write("a.jpg", GetParam(), 1);
    write("b.jpg", GetParam(), 1);
    scan();
    write("c.jpg", GetParam(), 2);
    const Outcome second = scan();
    EXPECT_EQ(second.opened, (Names{"a.jpg", "c.jpg"}));
    EXPECT_EQ(second.sets, (NameSets{{"a.jpg", "b.jpg"}}));
}

TEST_P(RememberedScanOf, AFileChangedWithItsDatePutBackReadsItAgain) {
    write("a.jpg", GetParam(), 1);
    write("b.jpg", GetParam(), 1);
    write("c.jpg", GetParam(), 1);
    scan();
    changeSecretly(pathOf("b.jpg"), noise(GetParam(), 2));
    const Outcome second = scan();
    EXPECT_EQ(second.opened, (Names{"a.jpg", "b.jpg"}));
    EXPECT_EQ(second.sets, (NameSets{{"a.jpg", "c.jpg"}}));
}

TEST_P(RememberedScanOf, AFileInThePlaceOfAnotherReadsIt) {
    write("a.jpg", GetParam(), 1);
    write("b.jpg", GetParam(), 1);
    write("other", GetParam(), 2);
    const struct stat before = statusAt(pathOf("b.jpg"));
    scan();
    const timespec times[2] = {before.st_atim, before.st_mtim};
    ASSERT_EQ(::utimensat(AT_FDCWD, pathOf("other").c_str(), times, 0), 0);
    std::filesystem::rename(pathOf("other"), pathOf("b.jpg"));
    const Outcome second = scan();
    EXPECT_EQ(second.opened, (Names{"a.jpg", "b.jpg"}));
    EXPECT_EQ(second.sets, NameSets{});
}

TEST_P(RememberedScanOf, RelationsOfSeveralScansAreJoined) {
    write("x/a.jpg", GetParam(), 1);
    write("x/b.jpg", GetParam(), 1);
    scan();
    std::filesystem::rename(pathOf("x"), memory_.pathOf("x"));
    write("y/c.jpg", GetParam(), 2);
    write("y/d.jpg", GetParam(), 1);
    EXPECT_EQ(scan().sets, NameSets{});
    std::filesystem::rename(memory_.pathOf("x"), pathOf("x"));
    const Outcome third = scan();
    EXPECT_EQ(third.opened, (Names{"x/a.jpg", "y/c.jpg", "y/d.jpg"}));
    EXPECT_EQ(third.sets, (NameSets{{"x/a.jpg", "x/b.jpg", "y/d.jpg"}}));
    EXPECT_EQ(scan().opened, Names{});
}

TEST_P(RememberedScanOf, AnUnreadableFileReadsAnotherOneInItsPlace) {
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
        write(name, GetParam(), 1);
    }
    scan();
    write("d.jpg", GetParam(), 1);
    const Outcome second = scan([this](FaultyFileSystem& fileSystem) {
        fileSystem.failCall(FileCall::openFile, FaultyFileSystem::each, EIO, pathOf("a.jpg"));
    });
    EXPECT_EQ(second.sets, (NameSets{{"b.jpg", "c.jpg", "d.jpg"}}));
    EXPECT_EQ(second.unreadable.files, 1U);
    EXPECT_EQ(scan().sets, (NameSets{{"a.jpg", "b.jpg", "c.jpg", "d.jpg"}}));
}

TEST_P(RememberedScanOf, AFileChangedBeforeItIsOpenedStandsForNoOther) {
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
        write(name, GetParam(), 1);
    }
    scan();
    write("d.jpg", GetParam(), 2);
    const Outcome second = scan([this](FaultyFileSystem& fileSystem) {
        fileSystem.beforeCall(
            FileCall::openFile, 1,
            [this] { changeSecretly(pathOf("a.jpg"), noise(GetParam(), 2)); }, pathOf("a.jpg"));
    });
    EXPECT_EQ(second.sets, (NameSets{{"a.jpg", "d.jpg"}, {"b.jpg", "c.jpg"}}));
    EXPECT_EQ(scan().sets, second.sets);
}

TEST_P(RememberedScanOf, AFileChangedWhileItIsReadStandsForNoOther) {
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
        write(name, GetParam(), 1);
    }
    scan();
    write("d.jpg", GetParam(), 2);
    const Outcome second = scan([this](FaultyFileSystem& fileSystem) {
        fileSystem.beforeCall(
            FileCall::readAt, 1, [this] { changeSecretly(pathOf("a.jpg"), noise(GetParam(), 2)); },
            pathOf("a.jpg"));
    });
    for (const Names& set : second.sets) {
        EXPECT_TRUE(set == (Names{"a.jpg", "d.jpg"}) || set == (Names{"b.jpg", "c.jpg"}));
    }
    EXPECT_EQ(scan().sets, (NameSets{{"a.jpg", "d.jpg"}, {"b.jpg", "c.jpg"}}));
}

TEST_P(RememberedScanOf, AFileUnderTwoPathsIsInASetOnce) {
    write("a.jpg", GetParam(), 1);
    write("b.jpg", GetParam(), 1);
    write("c.jpg", GetParam(), 1);
    const Mount mount(pathOf("a.jpg"), pathOf("b.jpg"), nullptr, MS_BIND);
    if (!mount) {
        return;
    }
    EXPECT_EQ(scan().sets, (NameSets{{"a.jpg", "c.jpg"}}));
    const Outcome second = scan();
    EXPECT_EQ(second.sets, (NameSets{{"a.jpg", "c.jpg"}}));
    EXPECT_EQ(second.opened, Names{});
}

TEST_P(RememberedScanOf, HardLinksAreFilesOfOneSet) {
    write("a.jpg", GetParam(), 1);
    std::filesystem::create_hard_link(pathOf("a.jpg"), pathOf("b.jpg"));
    write("c.jpg", GetParam(), 2);
    EXPECT_EQ(scan().sets, (NameSets{{"a.jpg", "b.jpg"}}));
    const Outcome second = scan();
    EXPECT_EQ(second.opened, Names{});
    EXPECT_EQ(second.sets, (NameSets{{"a.jpg", "b.jpg"}}));
}

// Each category has relations of its own, and a file with several names may be in several.
TEST_P(RememberedScanOf, HardLinksInTwoCategoriesOpensNone) {
    write("a.jpg", GetParam(), 1);
    std::filesystem::create_hard_link(pathOf("a.jpg"), pathOf("a.txt"));
    write("b.jpg", GetParam(), 2);
    write("c.jpg", GetParam(), 1);
    write("b.txt", GetParam(), 3);
    const NameSets sets{{"a.jpg", "c.jpg"}};
    EXPECT_EQ(scan().sets, sets);
    for (int scans = 0; scans < 2; ++scans) {
        const Outcome next = scan();
        EXPECT_EQ(next.opened, Names{});
        EXPECT_EQ(next.sets, sets);
    }
    write("c.txt", GetParam(), 1);
    const Outcome last = scan();
    EXPECT_EQ(last.opened, (Names{"a.txt", "b.txt", "c.txt"}));
    EXPECT_EQ(last.sets, (NameSets{{"a.jpg", "c.jpg"}, {"a.txt", "c.txt"}}));
}

/// A way in which the attributes of a file become those of another one.
struct OtherState {
    const char* name;
    void (*change)(FileAttributes& attributes);
};

class RememberedState : public RememberedScan, public testing::WithParamInterface<OtherState> {};

constexpr Timestamp::duration aNanosecond{1};

INSTANTIATE_TEST_SUITE_P(
    Parts, RememberedState,
    testing::Values(
        OtherState{"OtherSize", [](FileAttributes& each) { ++each.size; }},
        OtherState{"OtherDateOfModification",
                   [](FileAttributes& each) { *each.modified -= aNanosecond; }},
        OtherState{"OtherDateOfChange", [](FileAttributes& each) { *each.changed += aNanosecond; }},
        OtherState{"OtherDateOfCreation",
                   [](FileAttributes& each) { *each.created += aNanosecond; }},
        OtherState{"NoDateOfCreation", [](FileAttributes& each) { each.created = std::nullopt; }},
        OtherState{"OtherInode", [](FileAttributes& each) { ++each.identity.inode; }},
        OtherState{"InodeThatIsReused",
                   [](FileAttributes& each) {
                       *each.created += 1s;
                       *each.changed += 1s;
                   }},
        OtherState{"RestoredBackup",
                   [](FileAttributes& each) {
                       each.identity.inode += 10;
                       *each.created += 1s;
                       *each.changed += 1s;
                   }}),
    [](const testing::TestParamInfo<OtherState>& each) { return each.param.name; });

// What is there now is different, so believing the memory would make a set of them.
TEST_P(RememberedState, ThatIsAnotherOneIsReadAgain) {
    std::map<std::string, FileAttributes> states;
    for (const std::string name : {"a.jpg", "b.jpg"}) {
        write(name, largeFile, 1);
        states[name] = *systemFileSystem().attributesAtPath(pathOf(name));
        // File systems differ in whether they have it.
        states[name].created = states[name].changed;
        // Neither has the inode that another one gets.
        states[name].identity.inode = 1000 + 100 * states.size();
    }
    const Preparation asTold = [&](FaultyFileSystem& fileSystem) {
        for (const auto& [name, attributes] : states) {
            fileSystem.setAttributes(pathOf(name), attributes);
        }
    };
    EXPECT_EQ(scan(asTold).sets, (NameSets{{"a.jpg", "b.jpg"}}));
    EXPECT_EQ(scan(asTold).opened, Names{});
    for (auto& [name, attributes] : states) {
        GetParam().change(attributes);
        write(name, attributes.size, name == "a.jpg" ? 2 : 3);
    }
    const Outcome next = scan(asTold);
    EXPECT_EQ(next.opened, (Names{"a.jpg", "b.jpg"}));
    EXPECT_EQ(next.sets, NameSets{});
    EXPECT_EQ(scan(asTold).opened, Names{});
}

TEST_F(RememberedScan, AFileWithoutReadingHasTheStateThatAMoveChecks) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    scan();
    FaultyFileSystem fileSystem;
    fileSystem.setVolumeName(volume_);
    FakePlatform platform(fileSystem);
    platform.clock().set(now_);
    SilentScan observer;
    ScanRun run(platform, observer);
    run.setMemory(memory_.path());
    run.start({{tree_.path(), "", "", true, true}}, {});
    run.wait();
    EXPECT_EQ(openedFiles(fileSystem), Names{});
    const auto& modal = *run.result().modal;
    ASSERT_EQ(modal.totalFiles(), 1U);
    for (const auto& file : modal.extensions().front()->sets().front()->files()) {
        const Result<FileAttributes> now = fileSystem.attributesAtPath(file->filePath());
        ASSERT_NE(file->compared(), nullptr);
        EXPECT_EQ(file->compared()->identity, now->identity);
        EXPECT_EQ(file->compared()->changed, now->changed);
    }
}

TEST_F(RememberedScan, ReadsItsMemoryAheadWhileItCollects) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    scan();
    const auto size = std::filesystem::file_size(memoryPath());
    scan([this, size](FaultyFileSystem& fileSystem) {
        fileSystem.beforeCall(FileCall::listEntries, 1, [this, size, &fileSystem] {
            EXPECT_TRUE(waitUntil([&] { return !fileSystem.readAheadCalls().empty(); }));
            EXPECT_EQ(fileSystem.readAheadCalls(),
                      (std::vector<FaultyFileSystem::ReadAheadCall>{{memoryPath(), 0, size}}));
        });
    });
}

TEST_F(RememberedScan, AnotherVolumeWithTheSameNumbersIsRead) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    scan();
    volume_ = "another";
    EXPECT_EQ(scan().opened, (Names{"a.jpg", "b.jpg"}));
    volume_ = "volume";
    EXPECT_EQ(scan().opened, Names{});
}

TEST_F(RememberedScan, AVolumeWithoutALastingNameIsNotRemembered) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    volume_ = std::nullopt;
    scan();
    EXPECT_EQ(scan().opened, (Names{"a.jpg", "b.jpg"}));
    EXPECT_FALSE(std::filesystem::exists(memoryPath()));
}

TEST_F(RememberedScan, TwoVolumesOfOneNameAreNotRemembered) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    const Preparation onTwoDevices = [this](FaultyFileSystem& fileSystem) {
        fileSystem.setIdentity(pathOf("b.jpg"), {7, 7});
    };
    scan(onTwoDevices);
    EXPECT_EQ(scan(onTwoDevices).opened, (Names{"a.jpg", "b.jpg"}));
}

TEST_F(RememberedScan, AFileWhoseDatesHaveNotSettledIsReadAgain) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    const Timestamp hour = now_;
    now_ = systemClock().now() + 50s;
    scan();
    EXPECT_EQ(scan().opened, (Names{"a.jpg", "b.jpg"}));
    now_ = hour;
    EXPECT_EQ(scan().opened, (Names{"a.jpg", "b.jpg"}));
    EXPECT_EQ(scan().opened, Names{});
}

TEST_F(RememberedScan, AFileWhoseDateOfChangeHasNotSettledIsReadAgain) {
    for (const char* name : {"a.jpg", "b.jpg"}) {
        write(name, smallFile, 1);
        const timespec earlier{statusAt(pathOf(name)).st_mtim.tv_sec - 7200, 0};
        const timespec times[2] = {earlier, earlier};
        ASSERT_EQ(::utimensat(AT_FDCWD, pathOf(name).c_str(), times, 0), 0);
    }
    now_ = systemClock().now() + 50s;
    scan();
    EXPECT_EQ(scan().opened, (Names{"a.jpg", "b.jpg"}));
}

TEST_F(RememberedScan, AFileWithADateInTheFutureIsReadAgain) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    const timespec later{statusAt(pathOf("a.jpg")).st_mtim.tv_sec + 7200, 0};
    const timespec times[2] = {later, later};
    ASSERT_EQ(::utimensat(AT_FDCWD, pathOf("a.jpg").c_str(), times, 0), 0);
    scan();
    EXPECT_EQ(scan().opened, (Names{"a.jpg", "b.jpg"}));
}

TEST_F(RememberedScan, WithTheClockSetBackReadsAllFiles) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    scan();
    now_ -= 2h;
    const Outcome second = scan();
    EXPECT_EQ(second.opened, (Names{"a.jpg", "b.jpg"}));
    EXPECT_EQ(second.sets, (NameSets{{"a.jpg", "b.jpg"}}));
}

TEST_F(RememberedScan, WithoutItNothingIsStored) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    scanWithoutMemory();
    EXPECT_TRUE(std::filesystem::is_empty(memory_.path()));
}

TEST_F(RememberedScan, ReplacesADamagedMemory) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    memory_.writeFile("scans.sqlite", std::string(10'000, 'x'));
    const Outcome first = scan();
    EXPECT_EQ(first.memory.damaged, memoryPath());
    EXPECT_FALSE(first.memory.notRead);
    EXPECT_EQ(first.sets, (NameSets{{"a.jpg", "b.jpg"}}));
    const Outcome second = scan();
    EXPECT_EQ(second.memory.damaged, "");
    EXPECT_EQ(second.opened, Names{});
}

TEST_F(RememberedScan, ReplacesAMemoryWhoseRowsAreDamaged) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    scan();
    std::string database = contentOf(memoryPath());
    constexpr std::size_t page = 4096;
    std::fill(database.begin() + page, database.end(), '\x77');
    memory_.writeFile("scans.sqlite", database);
    const Outcome second = scan();
    EXPECT_EQ(second.memory.damaged, memoryPath());
    EXPECT_EQ(second.sets, (NameSets{{"a.jpg", "b.jpg"}}));
    EXPECT_EQ(scan().opened, Names{});
}

TEST_F(RememberedScan, GoesOnWithoutAMemoryThatIsInUse) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    {
        const StoreResult<ScanMemory> other = ScanMemory::open(memory_.path());
        const Outcome first = scan();
        ASSERT_TRUE(first.memory.notRead);
        EXPECT_EQ(first.memory.notRead->text, "in use by another process");
        EXPECT_FALSE(first.memory.notStored);
        EXPECT_EQ(first.sets, (NameSets{{"a.jpg", "b.jpg"}}));
    }
    EXPECT_EQ(scan().opened, (Names{"a.jpg", "b.jpg"}));
}

class RememberedVersion : public RememberedScan {
 protected:
    /// Remembers two equal files, as a program with this version of the format. Returns the file.
    std::string rememberTwoAsVersion(char version) {
        constexpr std::size_t lastByteOfTheVersion = 63;  // user_version
        write("a.jpg", smallFile, 1);
        write("b.jpg", smallFile, 1);
        scan();
        std::string database = contentOf(memoryPath());
        database[lastByteOfTheVersion] = version;
        memory_.writeFile("scans.sqlite", database);
        return database;
    }
};

TEST_F(RememberedVersion, LeavesAMemoryOfANewerVersionAsItIs) {
    const std::string database = rememberTwoAsVersion(3);
    const Outcome second = scan();
    ASSERT_TRUE(second.memory.notRead);
    EXPECT_EQ(second.memory.notRead->text, "written by a newer version of the program");
    EXPECT_EQ(second.sets, (NameSets{{"a.jpg", "b.jpg"}}));
    EXPECT_EQ(contentOf(memoryPath()), database);
}

TEST_F(RememberedVersion, ReplacesAMemoryOfAnOlderVersion) {
    rememberTwoAsVersion(1);
    const Outcome second = scan();
    EXPECT_FALSE(second.memory.notRead);
    EXPECT_EQ(second.memory.damaged, "");
    EXPECT_EQ(second.opened, (Names{"a.jpg", "b.jpg"}));
    EXPECT_EQ(scan().opened, Names{});
}

TEST_F(RememberedScan, DoesNotMakeAMemoryAgainThatWasRemoved) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    const Outcome outcome = scan([this](FaultyFileSystem& fileSystem) {
        fileSystem.beforeCall(
            FileCall::openFile, 1,
            [this] { EXPECT_TRUE(std::get<bool>(ScanMemory::remove(memory_.path()))); }, ".jpg");
    });
    EXPECT_EQ(outcome.sets, (NameSets{{"a.jpg", "b.jpg"}}));
    EXPECT_FALSE(outcome.memory.notStored);
    EXPECT_FALSE(std::filesystem::exists(memoryPath()));
}

// The file that is read ahead may still be open.
TEST_F(RememberedScan, DoesNotOpenItsMemoryAfterAStop) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    FaultyFileSystem fileSystem;
    fileSystem.setVolumeName(volume_);
    FakePlatform platform(fileSystem);
    platform.clock().set(now_);
    SilentScan observer;
    ScanRun run(platform, observer);
    run.setMemory(memory_.path());
    fileSystem.beforeCall(FileCall::lastingVolumeName, 1, [&run] { run.requestStop(); });
    run.start({{tree_.path(), "", "", true, true}}, {});
    run.waitForMemory();
    EXPECT_EQ(fileSystem.calls(FileCall::lastingVolumeName), 1U);
    EXPECT_FALSE(std::filesystem::exists(memoryPath()));
}

TEST_F(RememberedScan, DoesNotStoreKnownNumbersInANewMemory) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    scan();
    write("c.jpg", smallFile, 1);
    scan([this](FaultyFileSystem& fileSystem) {
        fileSystem.beforeCall(
            FileCall::openFile, 1,
            [this] {
                EXPECT_TRUE(std::holds_alternative<bool>(ScanMemory::remove(memory_.path())));
                EXPECT_TRUE(std::holds_alternative<ScanMemory>(ScanMemory::open(memory_.path())));
            },
            ".jpg");
    });
    EXPECT_EQ(scan().opened, (Names{"a.jpg", "b.jpg", "c.jpg"}));
}

TEST_F(RememberedScan, OnAFullDiskStoresNothing) {
    for (int number = 0; number < 400; ++number) {
        write(std::to_string(number) + ".jpg", smallFile, 1);
    }
    static_cast<void>(ScanMemory::open(memory_.path()));
    FileSizeLimit limit;
    limit.set(16 * 1024);
    const Outcome first = scan();
    limit.lift();
    ASSERT_TRUE(first.memory.notStored);
    EXPECT_EQ(first.memory.notStored->path, memoryPath());
    EXPECT_EQ(first.sets.size(), 1U);
    EXPECT_EQ(scan().opened.size(), 400U);
}

TEST_F(RememberedScan, StoresFilesAgainBeforeTheyAreDropped) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    for (int scans = 0; scans < 8; ++scans) {
        const Names opened = scan().opened;
        EXPECT_EQ(std::count(opened.begin(), opened.end(), "a.jpg"), scans == 0 ? 1 : 0) << scans;
        now_ += std::chrono::days(40);
        // Storing any other file drops what is old.
        write("c" + std::to_string(scans) + ".jpg", smallFile + 1, 1);
    }
}

TEST_F(RememberedScan, KeepsWhatWasConfirmedBeforeAStop) {
    write("a.jpg", smallFile, 1);
    write("b.jpg", smallFile, 1);
    write("c.jpg", largeFile, 1);
    write("d.jpg", largeFile, 1);
    FaultyFileSystem fileSystem;
    fileSystem.setVolumeName(volume_);
    fileSystem.setListingOrder(ListingOrder::sorted);
    FakePlatform platform(fileSystem);
    platform.clock().set(now_);
    SilentScan observer;
    ScanRun::Settings settings;
    settings.workers = {1, 1};
    ScanRun run(platform, observer, settings);
    run.setMemory(memory_.path());
    fileSystem.beforeCall(FileCall::openFile, 1, [&run] { run.requestStop(); }, "d.jpg");
    run.start({{tree_.path(), "", "", true, true}}, {});
    run.waitForMemory();
    EXPECT_EQ(scan().opened, (Names{"c.jpg", "d.jpg"}));
}

/// Random files and changes between scans; each result is the same as without a memory.
class RandomChanges final {
 public:
    RandomChanges(const FileTree& tree, std::uint64_t seed) : tree_(tree), random_(seed) {}

    void makeSome() {
        for (int count = 0; count < 12; ++count) {
            makeOne();
        }
    }

 private:
    void makeOne() {
        const std::string path = tree_.pathOf(name());
        const bool isThere = std::filesystem::exists(path);
        switch (random_() % 6) {
            case 0:
                std::filesystem::remove(path);
                break;
            case 1:
                if (isThere) {
                    std::filesystem::rename(path, tree_.pathOf(name()));
                }
                break;
            case 2:
                if (isThere) {
                    changeSecretly(path, noise(std::filesystem::file_size(path), random_() % 2));
                }
                break;
            case 3:
                if (const std::string link = tree_.pathOf(name());
                    isThere && !std::filesystem::exists(link)) {
                    std::filesystem::create_hard_link(path, link);
                }
                break;
            default:
                std::filesystem::remove(path);
                tree_.writeFile(path.substr(tree_.path().size() + 1), content());
        }
    }

    std::string name() {
        static const std::vector<std::string> extensions{"jpg", "txt"};
        return std::to_string(random_() % 30) + '.' + extensions[random_() % extensions.size()];
    }

    /// Few sizes and few contents, which differ at different places.
    std::string content() {
        static const std::vector<std::size_t> sizes{0, 100, 20'000};
        const std::size_t size = sizes[random_() % sizes.size()];
        std::string bytes = noise(size, random_() % 2);
        if (size > 0 && random_() % 2 == 0) {
            bytes[random_() % 2 == 0 ? size / 2 : size - 1] = 'x';
        }
        return bytes;
    }

    const FileTree& tree_;
    std::mt19937_64 random_;
};

TEST_F(RememberedScan, FindsWhatAScanWithoutMemoryFindsAfterRandomChanges) {
    for (const std::uint64_t seed : testSeeds(3)) {
        SCOPED_TRACE(seedText(seed));
        RandomChanges changes(tree_, seed);
        std::size_t opened = 0;
        std::size_t openedWithout = 0;
        for (int round = 0; round < 12; ++round) {
            changes.makeSome();
            const Outcome found = scan();
            const Outcome expected = scanWithoutMemory();
            EXPECT_EQ(found.sets, expected.sets) << "round " << round;
            EXPECT_FALSE(found.memory.notRead);
            EXPECT_FALSE(found.memory.notStored);
            opened += found.opened.size();
            openedWithout += expected.opened.size();
        }
        EXPECT_LT(opened, openedWithout * 9 / 10);
    }
}

}  // namespace
}  // namespace tarvin
