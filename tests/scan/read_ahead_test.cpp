#include "scan/read_ahead.h"

#include "model/file_store.h"
#include "support/comparison_fixture.h"
#include "support/faulty_file_system.h"
#include "support/scan_tools.h"
#include "support/temporary_folder.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

Paths pathsOf(const std::vector<FaultyFileSystem::ReadAheadCall>& calls) {
    Paths paths;
    for (const FaultyFileSystem::ReadAheadCall& call : calls) {
        paths.push_back(call.path);
    }
    return paths;
}

/// Files at set places of a rotational disk. Nothing counts as cached.
class ReadAheadTest : public testing::Test {
 protected:
    ReadAheadTest() { forgetTheCache(); }

    void forgetTheCache() {
        fileSystem_.setRotational(true);
        fileSystem_.failCall(FileCall::readCachedAt, FaultyFileSystem::each, EAGAIN);
    }

    /// A file of this size, which begins at `place`.
    std::string add(const std::string& name, std::uint64_t place, std::uint64_t device = 1) {
        Directory*& folder = folders_[device];
        if (folder == nullptr) {
            folder = store_->addRoot(folder_.path());
            folder->identity = {device, 2};
        }
        const std::string path = folder_.writeFile(name, "content");
        fileSystem_.setPlace(path, place);
        files_.push_back(store_->addFile(folder, name, 7, std::nullopt, std::nullopt));
        return path;
    }

    /// Requests 5 bytes of each file that was not requested yet.
    void request(std::uint64_t bytes = 5) {
        std::vector<ReadAhead::Wanted> wanted;
        for (; requested_ < files_.size(); ++requested_) {
            wanted.push_back({files_[requested_], 1, bytes});
        }
        readAhead_.request(std::move(wanted), [this] { ++done_; });
    }

    Paths sweep() {
        request();
        readAhead_.sweep();
        return pathsOf(fileSystem_.readAheadCalls());
    }

    FaultyFileSystem fileSystem_;
    ScanTools tools_{fileSystem_, {2, 4}};
    ReadAhead readAhead_{tools_.services()};
    TemporaryFolder folder_;
    std::shared_ptr<FileStore> store_ = FileStore::create();
    std::map<std::uint64_t, Directory*> folders_;
    std::vector<File*> files_;
    std::size_t requested_ = 0;
    int done_ = 0;
};

TEST_F(ReadAheadTest, ReadsInTheOrderOfTheDisk) {
    const std::string last = add("a", 9'000'000'000);
    const std::string first = add("b", 4096);
    const std::string middle = add("c", 8192);
    EXPECT_EQ(sweep(), (Paths{first, middle, last}));
}

TEST_F(ReadAheadTest, ReadsAsMuchAsIsWanted) {
    const std::string path = add("a", 1);
    sweep();
    EXPECT_EQ(fileSystem_.readAheadCalls(),
              (std::vector<FaultyFileSystem::ReadAheadCall>{{path, 1, 5}}));
}

TEST(ReadAheadOfAFile, IsWholeForSmallFilesAndLikelyCopies) {
    constexpr std::uint64_t mebi = 1024 * 1024;
    EXPECT_EQ(ReadAhead::bytesAFile(1000, 1000), 1000U);
    EXPECT_EQ(ReadAhead::bytesAFile(mebi / 4, 1000), mebi / 4);
    EXPECT_EQ(ReadAhead::bytesAFile(mebi, 1000), 264 * 1024U);
    EXPECT_EQ(ReadAhead::bytesAFile(8 * mebi, 4), 8 * mebi);
    EXPECT_EQ(ReadAhead::bytesAFile(8 * mebi, 5), 264 * 1024U);
    EXPECT_EQ(ReadAhead::bytesAFile(8 * mebi + 1, 2), 264 * 1024U);
}

TEST(ReadAheadOfAFile, IncludesTheEndsOfLikelyCopies) {
    constexpr std::uint64_t mebi = 1024 * 1024;
    EXPECT_EQ(ReadAhead::bytesOfEnd(9 * mebi, 4), 8 * 1024U);
    EXPECT_EQ(ReadAhead::bytesOfEnd(9 * mebi, 5), 0U);
    EXPECT_EQ(ReadAhead::bytesOfEnd(8 * mebi, 4), 0U);
}

TEST_F(ReadAheadTest, ReadsTheFilesOfAllRequestsInOneSweep) {
    const std::string last = add("a", 9'000);
    const std::string first = add("b", 1'000);
    request();
    const std::string middle = add("c", 5'000);
    request();
    EXPECT_EQ(done_, 0);
    readAhead_.sweep();
    EXPECT_EQ(pathsOf(fileSystem_.readAheadCalls()), (Paths{first, middle, last}));
    EXPECT_EQ(done_, 2);
}

TEST_F(ReadAheadTest, LeavesRequestsToTheNextSweepIfThisOneIsFull) {
    const std::string first = add("a", 9'000);
    request(ReadAhead::mostBytesASweep);
    const std::string second = add("b", 1'000);
    request();
    readAhead_.sweep();
    const Paths read = pathsOf(fileSystem_.readAheadCalls());
    EXPECT_EQ(read.front(), first);
    EXPECT_EQ(read.back(), second);
    EXPECT_EQ(done_, 2);
}

TEST_F(ReadAheadTest, CarriesOutRequestsThatAreMadeWhenOneIsDone) {
    const std::string first = add("a", 9'000);
    readAhead_.request({{files_.front(), 0, 5}}, [this] {
        EXPECT_EQ(fileSystem_.readAheadCalls().size(), 1U);
        add("b", 1'000);
        requested_ = 1;
        request();
        readAhead_.sweep();
        EXPECT_EQ(done_, 0);
    });
    readAhead_.sweep();
    EXPECT_EQ(done_, 1);
    EXPECT_EQ(fileSystem_.readAheadCalls().size(), 2U);
}

TEST_F(ReadAheadTest, WaitsForTheComparisonsThatAreExpected) {
    readAhead_.expect(2);
    const auto begin = std::chrono::steady_clock::now();
    sweep();
    EXPECT_GE(std::chrono::steady_clock::now() - begin, ReadAhead::patience);
    EXPECT_EQ(done_, 1);
}

TEST_F(ReadAheadTest, DoesNotWaitForAComparisonThatRequestsNothing) {
    readAhead_.expect(2);
    readAhead_.expectOneLess();
    const auto begin = std::chrono::steady_clock::now();
    sweep();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, ReadAhead::patience);
    EXPECT_EQ(done_, 1);
}

TEST_F(ReadAheadTest, LeavesOutWhatIsGone) {
    add("a", 1);
    const std::string there = add("b", 2);
    std::filesystem::remove(folder_.pathOf("a"));
    EXPECT_EQ(sweep(), (Paths{there}));
    EXPECT_EQ(tools_.unreadable().report().total(), 0U);
}

TEST_F(ReadAheadTest, DoesNothingForOtherDevices) {
    fileSystem_.setRotational(false);
    add("a", 1);
    EXPECT_EQ(sweep(), Paths{});
    EXPECT_FALSE(readAhead_.isUsefulIn(*files_.front()->directory()));
    EXPECT_EQ(fileSystem_.calls(FileCall::openFile), 0U);
}

TEST_F(ReadAheadTest, DoesNothingForAFolderWhoseDeviceIsUnknown) {
    add("a", 1);
    folders_[1]->identity = {};
    EXPECT_EQ(sweep(), Paths{});
}

TEST_F(ReadAheadTest, DoesNothingIfTheFilesAreCached) {
    for (int number = 0; number < 100; ++number) {
        add(std::to_string(number), 1);
    }
    fileSystem_.clearFaults();
    EXPECT_EQ(sweep(), Paths{});
    EXPECT_LE(fileSystem_.calls(FileCall::openFile), 20U);
}

TEST_F(ReadAheadTest, SweepsEachDiskByItself) {
    const std::string one = add("a", 2, 1);
    const std::string two = add("b", 1, 2);
    const std::string three = add("c", 1, 1);
    const Paths read = sweep();
    ASSERT_EQ(read.size(), 3U);
    EXPECT_LT(std::find(read.begin(), read.end(), three), std::find(read.begin(), read.end(), one));
    EXPECT_NE(std::find(read.begin(), read.end(), two), read.end());
}

TEST_F(ReadAheadTest, SweepsTheVolumesOfADiskTogether) {
    fileSystem_.setRotationalDisk(7);
    const std::string one = add("a", 3, 1);
    const std::string two = add("b", 2, 2);
    const std::string three = add("c", 1, 1);
    EXPECT_EQ(sweep(), (Paths{three, two, one}));
}

TEST_F(ReadAheadTest, SweepsDisksAtTheSameTime) {
    const std::string one = add("a", 1, 1);
    const std::string other = add("b", 1, 2);
    Event begun;
    Event otherBegun;
    bool met = false;
    bool otherMet = false;
    // The first open of each looks whether it is cached, before the sweeps. In the second, each
    // sweep waits for the other one.
    fileSystem_.beforeCall(
        FileCall::openFile, 2,
        [&] {
            begun.set();
            met = otherBegun.wait();
        },
        one);
    fileSystem_.beforeCall(
        FileCall::openFile, 2,
        [&] {
            otherBegun.set();
            otherMet = begun.wait();
        },
        other);
    EXPECT_EQ(sweep().size(), 2U);
    EXPECT_TRUE(met);
    EXPECT_TRUE(otherMet);
}

TEST_F(ReadAheadTest, EndsSoonAfterAStop) {
    add("a", 1);
    tools_.control().requestStop();
    EXPECT_EQ(sweep(), Paths{});
}

/// Pairs of files on a rotational disk, of which nothing is cached, each at another place.
class ComparisonOnARotationalDisk : public testing::Test {
 protected:
    ComparisonOnARotationalDisk() {
        fileSystem_.setRotational(true);
        fileSystem_.failCall(FileCall::readCachedAt, FaultyFileSystem::each, EAGAIN);
    }

    /// Adds files of so many sizes, which begin with `leastSize`, two of each.
    void addPairs(int pairs, std::uint64_t leastSize) {
        for (int number = 0; number < 2 * pairs; ++number) {
            const std::uint64_t size = leastSize + static_cast<std::uint64_t>(number % pairs);
            const std::string path =
                fixture_.folder().writeFile(std::to_string(number) + ".jpg", "");
            std::filesystem::resize_file(path, size);
            const File* const file = fixture_.addPath(path, size);
            const_cast<Directory*>(file->directory())->identity = {1, 2};
            // The number is prime.
            const std::uint64_t place = static_cast<std::uint64_t>(number) * 7919 % 100'003;
            fileSystem_.setPlace(path, place * 4096);
            places_[path] = place;
        }
    }

    /// How many files were read ahead before the arm went back; once for each time.
    std::vector<std::size_t> filesOfSweeps() {
        std::vector<std::size_t> files;
        std::uint64_t last = 0;
        for (const std::string& path : pathsOf(fileSystem_.readAheadCalls())) {
            if (files.empty() || places_[path] < last) {
                files.push_back(0);
            }
            ++files.back();
            last = places_[path];
        }
        return files;
    }

    FaultyFileSystem fileSystem_;
    ComparisonFixture fixture_{fileSystem_};

 private:
    std::map<std::string, std::uint64_t> places_;
};

TEST_F(ComparisonOnARotationalDisk, ReadsAheadInTheOrderOfTheDiskAndFindsAllSets) {
    addPairs(200, 1);
    const std::shared_ptr<Modal> modal = fixture_.find();
    ASSERT_EQ(modal->extensions().size(), 1U);
    EXPECT_EQ(modal->extensions().front()->sets().size(), 200U);
    EXPECT_EQ(filesOfSweeps(), std::vector<std::size_t>{400});
    EXPECT_EQ(fixture_.processed(), 400U);
}

TEST_F(ComparisonOnARotationalDisk, ReadsAheadAHundredMegabytesInOneSweep) {
    addPairs(50, 1'000'000);
    fixture_.find();
    const std::vector<std::size_t> files = filesOfSweeps();
    ASSERT_FALSE(files.empty());
    // Stretches of files that are in memory follow.
    EXPECT_EQ(files.front(), 100U);
}

TEST_F(ComparisonOnARotationalDisk, DecidesFilesAfterAFirstSweepOfFewer) {
    addPairs(3000, 1);
    fixture_.find();
    const std::vector<std::size_t> files = filesOfSweeps();
    ASSERT_EQ(files.size(), 2U);
    // All files of a batch are in one sweep.
    EXPECT_GE(files.front(), 4096U);
    EXPECT_LE(files.front(), 4160U);
    EXPECT_EQ(files.front() + files.back(), 6000U);
}

/// Large files on a rotational disk, of which nothing counts as cached. They are sparse.
class StretchesOfLargeFiles : public testing::Test {
 protected:
    StretchesOfLargeFiles() {
        fileSystem_.setRotational(true);
        fileSystem_.failCall(FileCall::readCachedAt, FaultyFileSystem::each, EAGAIN);
    }

    /// A file of `size` zeros, but for a byte at `place` if there is one.
    std::string add(const std::string& name, std::uint64_t size,
                    std::optional<std::uint64_t> place = std::nullopt) {
        const std::string path = fixture_.folder().writeFile(name, "");
        std::filesystem::resize_file(path, size);
        if (place) {
            std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
            file.seekp(static_cast<std::streamoff>(*place));
            file.put('x');
        }
        fixture_.addPath(path, size);
        return path;
    }

    /// The bytes that were read ahead of the file.
    [[nodiscard]] std::uint64_t readAheadOf(const std::string& path) const {
        std::uint64_t bytes = 0;
        for (const FaultyFileSystem::ReadAheadCall& call : fileSystem_.readAheadCalls()) {
            bytes += call.path == path ? call.bytes : 0;
        }
        return bytes;
    }

    static constexpr std::uint64_t mebi = 1024 * 1024;
    static constexpr std::uint64_t edges = 2 * ComparisonOrder::edgeBytes;
    static constexpr std::uint64_t beginning = ReadAhead::beginningBytes;

    FaultyFileSystem fileSystem_;
    ComparisonFixture fixture_{fileSystem_};
};

TEST_F(StretchesOfLargeFiles, GoThroughEachFileOnceAndInOrder) {
    const std::string one = add("one.mov", 60 * mebi);
    const std::string other = add("other.mov", 60 * mebi);
    fixture_.find();
    std::map<std::string, std::uint64_t> ends{{one, beginning}, {other, beginning}};
    std::size_t turns = 0;
    std::string last;
    for (const FaultyFileSystem::ReadAheadCall& call : fileSystem_.readAheadCalls()) {
        EXPECT_EQ(call.offset, ends[call.path]) << call.path;
        ends[call.path] = call.offset + call.bytes;
        turns += call.path == last ? 0U : 1U;
        last = call.path;
    }
    EXPECT_EQ(ends[one], 60 * mebi - edges / 2);
    EXPECT_EQ(ends[other], 60 * mebi - edges / 2);
    // 32 MiB, and the rest.
    EXPECT_EQ(turns, 4U);
}

TEST_F(StretchesOfLargeFiles, AreShortAtFirstIfManyFilesHaveTheSize) {
    std::vector<std::string> paths{add("one.mov", 60 * mebi, mebi)};
    for (const std::string name : {"2.mov", "3.mov", "4.mov", "5.mov"}) {
        paths.push_back(add(name, 60 * mebi, 2 * mebi));
    }
    fixture_.find();
    EXPECT_EQ(readAheadOf(paths.front()), 2 * mebi);
    EXPECT_EQ(readAheadOf(paths.back()), 60 * mebi - beginning - edges / 2);
}

TEST_F(StretchesOfLargeFiles, AreNotMadeOfFilesThatDifferAtTheirEnds) {
    const std::string one = add("one.mov", 60 * mebi, 60 * mebi - 1);
    const std::string other = add("other.mov", 60 * mebi);
    fixture_.find();
    EXPECT_EQ(readAheadOf(one), 0U);
}

TEST_F(StretchesOfLargeFiles, AreNotMadeOfAFileThatHasLeftTheGroup) {
    const std::string different = add("a.mov", 60 * mebi, mebi);
    const std::string one = add("b.mov", 60 * mebi);
    const std::string other = add("c.mov", 60 * mebi);
    fixture_.find();
    EXPECT_EQ(readAheadOf(different), 64 * mebi / 3);
    EXPECT_EQ(readAheadOf(one), 60 * mebi - beginning - edges / 2);
    EXPECT_EQ(readAheadOf(other), 60 * mebi - beginning - edges / 2);
}

TEST_F(StretchesOfLargeFiles, AreBoundedForAllFilesOfAGroup) {
    std::vector<std::string> paths;
    for (int number = 0; number < 10; ++number) {
        paths.push_back(add(std::to_string(number) + ".mov", 20 * mebi));
    }
    fixture_.find();
    for (const std::string& path : paths) {
        EXPECT_EQ(readAheadOf(path), 20 * mebi - beginning - edges / 2);
    }
    std::uint64_t most = 0;
    const auto calls = fileSystem_.readAheadCalls();
    for (std::size_t number = 0; number < calls.size();) {
        std::uint64_t stretch = 0;
        const std::string path = calls[number].path;
        for (; number < calls.size() && calls[number].path == path; ++number) {
            stretch += calls[number].bytes;
        }
        most = std::max(most, stretch);
    }
    EXPECT_LE(most, 64 * mebi / 10);
}

TEST_F(StretchesOfLargeFiles, AreNotMadeOnOtherDevices) {
    fileSystem_.setRotational(false);
    add("one.mov", 20 * mebi);
    add("other.mov", 20 * mebi);
    fixture_.find();
    EXPECT_TRUE(fileSystem_.readAheadCalls().empty());
}

}  // namespace
}  // namespace tarvin
