#include "scan/unreadable.h"

#include "scan/open_with_retry.h"
#include "scan/scan_run.h"
#include "support/comparison_fixture.h"
#include "support/fake_platform.h"
#include "support/faulty_file_system.h"
#include "support/file_tree.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

using Reported = std::vector<std::pair<std::string, int>>;

/// Checks the folders and files that a scan of a tree reports as unreadable.
class UnreadableTest : public ::testing::Test {
 protected:
    const UnreadableReport& scan() {
        fileSystem_.setListingOrder(ListingOrder::sorted);
        run_.start({{tree_.path(), "", "", true, true}}, {});
        run_.wait();
        return run_.result().unreadable;
    }

    /// Paths relative to the tree; folders have a trailing slash.
    [[nodiscard]] Reported reported(const UnreadableReport& report) const {
        Reported reported;
        for (const Unreadable& unreadable : report.kept) {
            reported.emplace_back(
                unreadable.path.substr(tree_.path().size() + 1) + (unreadable.isFolder ? "/" : ""),
                unreadable.error.code);
        }
        return reported;
    }

    FileTree tree_;
    FaultyFileSystem fileSystem_{systemFileSystem()};
    FakePlatform platform_{fileSystem_};
    ScanObserver observer_;
    ScanRun run_{platform_, observer_};
};

TEST_F(UnreadableTest, ReportsNothingIfAllIsReadable) {
    tree_.writeFile("a/1.txt", "same");
    tree_.writeFile("b/2.txt", "same");
    const UnreadableReport& report = scan();
    EXPECT_EQ(report.total(), 0U);
    EXPECT_TRUE(report.kept.empty());
    EXPECT_EQ(run_.result().modal->totalFiles(), 1U);
}

class UnreadableFolder : public UnreadableTest, public ::testing::WithParamInterface<int> {};

TEST_P(UnreadableFolder, IsReportedIfItCannotBeOpened) {
    tree_.writeFile("a/1.txt", "same");
    tree_.writeFile("closed/2.txt", "same");
    tree_.writeFile("z/3.txt", "same");
    fileSystem_.failCall(FileCall::openDirectoryAt, FaultyFileSystem::each, GetParam(), "closed");
    EXPECT_EQ(reported(scan()), (Reported{{"closed/", GetParam()}}));
    EXPECT_EQ(run_.result().unreadable.folders, 1U);
    EXPECT_EQ(run_.result().unreadable.files, 0U);
    EXPECT_EQ(run_.result().modal->totalFiles(), 1U);
}

TEST_P(UnreadableFolder, IsReportedIfItCannotBeListedToItsEnd) {
    tree_.writeFile("bad/1.txt", "same");
    tree_.writeFile("z/2.txt", "same");
    fileSystem_.failCall(FileCall::listEntries, 2, GetParam(), "bad");
    EXPECT_EQ(reported(scan()), (Reported{{"bad/", GetParam()}}));
    EXPECT_EQ(run_.result().modal->totalFiles(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Errors, UnreadableFolder, ::testing::Values(EACCES, EIO, ESTALE, EPERM));

TEST_F(UnreadableTest, ReportsAFileWithoutAttributes) {
    tree_.writeFile("a.txt", "same");
    tree_.writeFile("b.txt", "same");
    tree_.writeFile("c.txt", "same");
    fileSystem_.failCall(FileCall::attributesAt, FaultyFileSystem::each, EIO, "b.txt");
    EXPECT_EQ(reported(scan()), (Reported{{"b.txt", EIO}}));
    // It was not collected, so it does not count as a collected file.
    EXPECT_EQ(run_.result().unreadable.collectedFiles, 0U);
    EXPECT_EQ(run_.result().modal->totalFiles(), 1U);
}

struct FailingRead {
    FileCall call;
    int error;
    std::size_t size;
};

class UnreadableFile : public UnreadableTest, public ::testing::WithParamInterface<FailingRead> {};

TEST_P(UnreadableFile, IsReportedAndInNoSet) {
    tree_.writeFile("a.txt", noise(GetParam().size, 1));
    tree_.writeFile("b.txt", noise(GetParam().size, 1));
    tree_.writeFile("c.txt", noise(GetParam().size, 1));
    fileSystem_.failCall(GetParam().call, FaultyFileSystem::each, GetParam().error, "b.txt");
    EXPECT_EQ(reported(scan()), (Reported{{"b.txt", GetParam().error}}));
    EXPECT_EQ(run_.result().unreadable.files, 1U);
    EXPECT_EQ(run_.result().unreadable.collectedFiles, 1U);
    EXPECT_EQ(run_.result().collected(Category::documents), 3U);
    EXPECT_EQ(run_.result().modal->totalFiles(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Ways, UnreadableFile,
                         ::testing::Values(FailingRead{FileCall::openFile, EACCES, 4},
                                           FailingRead{FileCall::openFile, ESTALE, 20'000},
                                           FailingRead{FileCall::readAt, EIO, 4},
                                           FailingRead{FileCall::readAt, EIO, 20'000},
                                           FailingRead{FileCall::readAt, EIO, 9'000'000},
                                           FailingRead{FileCall::attributesOf, EIO, 20'000}),
                         [](const auto& info) { return "Way" + std::to_string(info.index); });

TEST_F(UnreadableTest, CountsAFileOfALargeClassOnce) {
    for (int number = 100; number < 300; ++number) {
        tree_.writeFile(std::to_string(number) + ".txt", noise(100'000, 1));
    }
    fileSystem_.failCall(FileCall::readAt, FaultyFileSystem::each, EIO, "150.txt");
    EXPECT_EQ(reported(scan()), (Reported{{"150.txt", EIO}}));
    EXPECT_EQ(run_.result().unreadable.files, 1U);
    EXPECT_EQ(run_.result().modal->totalFiles(), 198U);
}

TEST_F(UnreadableTest, EntriesThatWereNeverCollectedAreNotReportedIfGoneOrReplaced) {
    tree_.writeFile("a.txt", "same");
    tree_.writeFile("b.txt", "same");
    tree_.writeFile("folder/c.txt", "same");
    fileSystem_.failCall(FileCall::attributesAt, FaultyFileSystem::each, ENOENT, "a.txt");
    fileSystem_.failCall(FileCall::attributesAt, FaultyFileSystem::each, ELOOP, "b.txt");
    fileSystem_.failCall(FileCall::openDirectoryAt, FaultyFileSystem::each, ENOTDIR, "folder");
    EXPECT_EQ(scan().total(), 0U);
}

TEST_F(UnreadableTest, ReportsWhatWasRemovedSinceItWasListed) {
    for (const char* name : {"a.txt", "b.txt", "c.txt", "gone/d.txt"}) {
        tree_.writeFile(name, "same");
    }
    fileSystem_.beforeCall(
        FileCall::openDirectoryAt, 1, [this] { std::filesystem::remove_all(tree_.pathOf("gone")); },
        "gone");
    fileSystem_.beforeCall(
        FileCall::openFile, 1, [this] { std::filesystem::remove(tree_.pathOf("b.txt")); }, "b.txt");
    EXPECT_EQ(reported(scan()), (Reported{{"gone/", ENOENT}, {"b.txt", ENOENT}}));
    EXPECT_EQ(run_.result().unreadable.collectedFiles, 1U);
    EXPECT_EQ(run_.result().modal->totalFiles(), 1U);
}

/// Sizes at which the method of comparison changes, with the number of equal files.
struct EqualFiles {
    std::size_t size;
    int count;
};

/// One of equal files is not the same any more when it has been read.
class ChangingFile : public UnreadableTest, public ::testing::WithParamInterface<EqualFiles> {
 protected:
    ChangingFile() {
        for (int number = 0; number < GetParam().count; ++number) {
            tree_.writeFile(std::to_string(100 + number) + ".txt", noise(GetParam().size, 1));
        }
    }

    /// Scans, with `change` just before the file is read for the `nth` time.
    void scanWith(std::uint64_t nth, const std::function<void()>& change) {
        fileSystem_.beforeCall(FileCall::readAt, nth, change, "101.txt");
        scan();
    }

    void expectReported(bool hasChanged, int error) {
        const UnreadableReport& report = run_.result().unreadable;
        ASSERT_EQ(report.kept.size(), 1U);
        EXPECT_EQ(report.kept[0], (Unreadable{victim_, false, SystemError{error}, hasChanged}));
        EXPECT_EQ(report.collectedFiles, 1U);
        const auto extensions = run_.result().modal->extensions();
        ASSERT_EQ(extensions.size(), 1U);
        ASSERT_EQ(extensions[0]->sets().size(), 1U);
        const auto& files = extensions[0]->sets()[0]->files();
        EXPECT_EQ(static_cast<int>(files.size()), GetParam().count - 1);
        for (const auto& file : files) {
            EXPECT_NE(file->filePath(), victim_);
        }
    }

    const std::string victim_ = tree_.pathOf("101.txt");
};

TEST_P(ChangingFile, IsReportedIfItGrows) {
    scanWith(1, [this] { std::ofstream(victim_, std::ios::binary | std::ios::app) << "more"; });
    expectReported(true, 0);
    EXPECT_EQ(reasonOf(run_.result().unreadable.kept.at(0)), "changed while it was read");
}

TEST_P(ChangingFile, IsReportedIfItShrinks) {
    scanWith(1, [this] { std::filesystem::resize_file(victim_, GetParam().size / 2); });
    expectReported(true, 0);
}

TEST_P(ChangingFile, IsReportedIfALinkTakesItsPlaceBeforeItIsRead) {
    fileSystem_.beforeCall(
        FileCall::openFile, 1,
        [this] {
            std::filesystem::remove(victim_);
            std::filesystem::create_symlink("100.txt", victim_);
        },
        "101.txt");
    scan();
    expectReported(true, 0);
}

TEST_P(ChangingFile, IsReportedIfAPipeTakesItsPlaceBeforeItIsRead) {
    fileSystem_.beforeCall(
        FileCall::openFile, 1,
        [this] {
            std::filesystem::remove(victim_);
            ASSERT_EQ(::mkfifo(victim_.c_str(), 0600), 0);
        },
        "101.txt");
    scan();
    expectReported(true, 0);
}

// Read whole; kept open; in sections; opened for each range; split by hashes first.
INSTANTIATE_TEST_SUITE_P(Ways, ChangingFile,
                         ::testing::Values(EqualFiles{100, 3}, EqualFiles{20'000, 3},
                                           EqualFiles{9'000'000, 3}, EqualFiles{60'000, 40},
                                           EqualFiles{60'000, 100}),
                         [](const auto& info) {
                             return std::to_string(info.param.count) + "Of" +
                                    std::to_string(info.param.size);
                         });

/// The same for files that are read by more than one call, so that any change is seen.
class FileChangingInReading : public ChangingFile {};

TEST_P(FileChangingInReading, IsReportedIfItsBytesChange) {
    scanWith(1, [this] {
        std::fstream file(victim_, std::ios::binary | std::ios::in | std::ios::out);
        file.seekp(-1, std::ios::end);
        file << "x";
    });
    expectReported(true, 0);
}

TEST_P(FileChangingInReading, IsReportedIfItsDateChanges) {
    scanWith(1, [this] {
        std::filesystem::last_write_time(
            victim_, std::filesystem::file_time_type::clock::now() - std::chrono::hours(24));
    });
    expectReported(true, 0);
}

TEST_P(FileChangingInReading, IsReportedIfAnotherTakesItsPlace) {
    scanWith(1, [this] {
        std::filesystem::rename(tree_.writeFile("new", noise(GetParam().size, 1)), victim_);
    });
    expectReported(true, 0);
}

TEST_P(FileChangingInReading, IsReportedAsGoneIfItIsRemoved) {
    scanWith(1, [this] { std::filesystem::remove(victim_); });
    expectReported(false, ENOENT);
}

TEST_P(FileChangingInReading, IsReportedIfItCannotBeCheckedAgain) {
    fileSystem_.failCall(FileCall::attributesOf, 2, EIO, "101.txt");
    scan();
    expectReported(false, EIO);
}

INSTANTIATE_TEST_SUITE_P(Ways, FileChangingInReading,
                         ::testing::Values(EqualFiles{20'000, 3}, EqualFiles{9'000'000, 3},
                                           EqualFiles{60'000, 40}, EqualFiles{60'000, 100}),
                         [](const auto& info) {
                             return std::to_string(info.param.count) + "Of" +
                                    std::to_string(info.param.size);
                         });

TEST_F(UnreadableTest, ReportsAFileThatDiffersBecauseItChanged) {
    tree_.writeFile("a.txt", noise(300'000, 1));
    tree_.writeFile("b.txt", noise(300'000, 1));
    fileSystem_.beforeCall(
        FileCall::readAt, 1, [this] { tree_.writeFile("b.txt", noise(300'000, 2)); }, "b.txt");
    scan();
    ASSERT_EQ(run_.result().unreadable.kept.size(), 1U);
    EXPECT_TRUE(run_.result().unreadable.kept[0].hasChanged);
    EXPECT_EQ(run_.result().unreadable.kept[0].path, tree_.pathOf("b.txt"));
    EXPECT_EQ(run_.result().modal->totalFiles(), 0U);
}

TEST_F(UnreadableTest, ReportsTheReferenceFileIfItChanged) {
    tree_.writeFile("a.txt", noise(300'000, 1));
    tree_.writeFile("b.txt", noise(300'000, 1));
    fileSystem_.beforeCall(
        FileCall::readAt, 1, [this] { tree_.writeFile("a.txt", noise(300'000, 2)); }, "a.txt");
    scan();
    ASSERT_EQ(run_.result().unreadable.kept.size(), 1U);
    EXPECT_TRUE(run_.result().unreadable.kept[0].hasChanged);
    EXPECT_EQ(run_.result().unreadable.kept[0].path, tree_.pathOf("a.txt"));
}

TEST_F(UnreadableTest, DifferentFilesThatDidNotChangeAreNotReported) {
    for (int number = 0; number < 5; ++number) {
        tree_.writeFile(std::to_string(number) + ".txt", noise(300'000, 1));
        tree_.writeFile(std::to_string(number) + ".jpg",
                        noise(300'000, static_cast<std::uint64_t>(number)));
    }
    EXPECT_EQ(scan().total(), 0U);
}

/// Before it is opened a file changes its size, small and large.
class ResizedFile : public UnreadableTest, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(ResizedFile, IsReportedIfItIsInNoSet) {
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        tree_.writeFile(name, noise(GetParam(), 1));
    }
    fileSystem_.beforeCall(
        FileCall::openFile, 1,
        [this] { std::filesystem::resize_file(tree_.pathOf("b.txt"), GetParam() + 1); }, "b.txt");
    scan();
    ASSERT_EQ(run_.result().unreadable.kept.size(), 1U);
    EXPECT_EQ(run_.result().unreadable.kept[0],
              (Unreadable{tree_.pathOf("b.txt"), false, {}, true}));
    EXPECT_EQ(run_.result().modal->totalFiles(), 1U);
}

TEST_P(ResizedFile, IsNotReportedIfItIsInASet) {
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        tree_.writeFile(name, noise(GetParam(), 1));
    }
    for (const char* name : {"b.txt", "c.txt"}) {
        fileSystem_.beforeCall(
            FileCall::openFile, 1,
            [this, name] { std::filesystem::resize_file(tree_.pathOf(name), GetParam() + 1); },
            name);
    }
    EXPECT_EQ(scan().total(), 0U);
    EXPECT_EQ(run_.result().modal->totalFiles(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Sizes, ResizedFile, ::testing::Values(100, 20'000));

TEST_F(UnreadableTest, SortsFoldersBeforeFilesEachByPath) {
    for (const char* name : {"b.txt", "a.txt", "y/1.txt", "x/1.txt"}) {
        tree_.writeFile(name, "same");
    }
    fileSystem_.failCall(FileCall::openDirectoryAt, FaultyFileSystem::each, EACCES, "");
    fileSystem_.failCall(FileCall::openFile, FaultyFileSystem::each, EIO, "");
    EXPECT_EQ(reported(scan()),
              (Reported{{"x/", EACCES}, {"y/", EACCES}, {"a.txt", EIO}, {"b.txt", EIO}}));
}

TEST_F(UnreadableTest, StopIsNotAnErrorOfAFile) {
    for (int number = 0; number < 40; ++number) {
        tree_.writeFile(std::to_string(number) + ".txt", noise(100'000, 1));
    }
    fileSystem_.beforeCall(FileCall::readAt, 30, [this] { run_.requestStop(); });
    EXPECT_EQ(scan().total(), 0U);
    EXPECT_TRUE(run_.wasStopped());
}

TEST_F(UnreadableTest, IsClearedWithTheResult) {
    tree_.writeFile("closed/2.txt", "same");
    fileSystem_.failCall(FileCall::openDirectoryAt, FaultyFileSystem::each, EACCES, "closed");
    scan();
    ASSERT_EQ(run_.result().unreadable.total(), 1U);
    run_.homeCleanup();
    EXPECT_EQ(run_.result().unreadable.total(), 0U);
}

TEST_F(UnreadableTest, TrashFoldersAreNotUnreadable) {
    tree_.writeFile("trash/files/1.txt", "same");
    tree_.writeFile("a.txt", "same");
    const auto trash = systemFileSystem().attributesAtPath(tree_.pathOf("trash"));
    ASSERT_TRUE(trash);
    fileSystem_.setHomeTrash(trash->identity);
    EXPECT_EQ(scan().total(), 0U);
    EXPECT_EQ(run_.result().collected(Category::documents), 1U);
}

TEST(UnreadableLogTest, KeepsABoundedNumberOfPathsAndCountsAll) {
    const auto store = FileStore::create();
    const Directory* folder = store->addRoot("/folder");
    UnreadableLog log;
    for (std::size_t number = 0; number < UnreadableLog::maxKept + 10; ++number) {
        log.addFile(*folder, std::to_string(number), SystemError{EIO});
    }
    log.addFolder(*folder, SystemError{EACCES});
    const UnreadableReport report = log.report();
    EXPECT_EQ(report.kept.size(), 100'000U);
    EXPECT_EQ(report.files, 100'010U);
    EXPECT_EQ(report.folders, 1U);
    EXPECT_EQ(report.total(), 100'011U);
}

TEST_F(UnreadableTest, FolderWaitsForDescriptorsLongerThanTwoSeconds) {
    tree_.writeFile("a/1.txt", "same");
    tree_.writeFile("b/2.txt", "same");
    const auto begin = std::chrono::steady_clock::now();
    // Other code holds the descriptors for more than 2 s: there are 5 ms between two tries.
    for (std::uint64_t attempt = 1; attempt <= 500; ++attempt) {
        const int error = attempt % 2 == 0 ? ENFILE : EMFILE;
        fileSystem_.failCall(FileCall::openDirectoryAt, attempt, error, "/b");
        fileSystem_.failCall(FileCall::openDirectory, attempt, error, "/b");
    }
    EXPECT_EQ(scan().total(), 0U);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, 2500ms);
    EXPECT_EQ(run_.result().modal->totalFiles(), 1U);
}

TEST(OpenWithRetry, GivesUpIfNoDescriptorIsClosed) {
    FaultyFileSystem fileSystem;
    ScanControl control;
    int tries = 0;
    const Result<Descriptor> result = openWithRetry(
        fileSystem, control,
        [&]() -> Result<Descriptor> {
            ++tries;
            return SystemError{EMFILE};
        },
        500ms);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, EMFILE);
    EXPECT_GT(tries, 2);
}

TEST(OpenWithRetry, RetriesWhileDescriptorsAreClosed) {
    FaultyFileSystem fileSystem;
    ScanControl control;
    const FileTree tree;
    int tries = 0;
    const Result<Descriptor> result = openWithRetry(
        fileSystem, control,
        [&]() -> Result<Descriptor> {
            // Opens and closes a descriptor on each try.
            EXPECT_TRUE(fileSystem.openDirectory(tree.path()));
            return ++tries < 40 ? Result<Descriptor>(SystemError{EMFILE})
                                : fileSystem.openDirectory(tree.path());
        },
        50ms);
    EXPECT_TRUE(result);
    EXPECT_EQ(tries, 40);
}

TEST(OpenWithRetry, EndsWhenTheScanIsStopped) {
    FaultyFileSystem fileSystem;
    ScanControl control;
    const Result<Descriptor> result =
        openWithRetry(fileSystem, control, [&]() -> Result<Descriptor> {
            control.setStop(true);
            return SystemError{ENFILE};
        });
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, ENFILE);
}

}  // namespace
}  // namespace tarvin
