#include "scan/read_ahead.h"

#include "model/file_store.h"
#include "support/comparison_fixture.h"
#include "support/faulty_file_system.h"
#include "support/scan_tools.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

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

    Paths sweep() {
        readAhead_.sweep(files_);
        return fileSystem_.readAheadFiles();
    }

    FaultyFileSystem fileSystem_;
    ScanTools tools_{fileSystem_, {2, 4}};
    ReadAhead readAhead_{tools_.services()};
    TemporaryFolder folder_;
    std::shared_ptr<FileStore> store_ = FileStore::create();
    std::map<std::uint64_t, Directory*> folders_;
    std::vector<File*> files_;
};

TEST_F(ReadAheadTest, ReadsInTheOrderOfTheDisk) {
    const std::string last = add("a", 9'000'000'000);
    const std::string first = add("b", 4096);
    const std::string middle = add("c", 8192);
    EXPECT_EQ(sweep(), (Paths{first, middle, last}));
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

TEST_F(ReadAheadTest, EndsSoonAfterAStop) {
    add("a", 1);
    tools_.control().requestStop();
    EXPECT_EQ(sweep(), Paths{});
}

TEST(ComparisonOnARotationalDisk, ReadsAheadInTheOrderOfTheDiskAndFindsAllSets) {
    FaultyFileSystem fileSystem;
    fileSystem.setRotational(true);
    fileSystem.failCall(FileCall::readCachedAt, FaultyFileSystem::each, EAGAIN);
    ComparisonFixture fixture(fileSystem);
    constexpr int pairs = 200;
    std::map<std::uint64_t, std::string> byPlace;
    for (int number = 0; number < 2 * pairs; ++number) {
        const std::string content(static_cast<std::size_t>(1 + number % pairs), 'x');
        const File* const file = fixture.add(std::to_string(number) + ".jpg", content);
        const_cast<Directory*>(file->directory())->identity = {1, 2};
        const std::uint64_t place = static_cast<std::uint64_t>(number * 7919 % 4001) * 4096;
        fileSystem.setPlace(file->filePath(), place);
        byPlace[place] = file->filePath();
    }
    const std::shared_ptr<Modal> modal = fixture.find();
    ASSERT_EQ(modal->extensions().size(), 1U);
    EXPECT_EQ(modal->extensions().front()->sets().size(), static_cast<std::size_t>(pairs));
    Paths expected;
    for (const auto& [place, path] : byPlace) {
        expected.push_back(path);
    }
    EXPECT_EQ(fileSystem.readAheadFiles(), expected);
    EXPECT_EQ(fixture.processed(), 2U * pairs);
}

}  // namespace
}  // namespace tarvin
