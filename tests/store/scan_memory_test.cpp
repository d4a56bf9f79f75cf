#include "store/scan_memory.h"

#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tarvin {
namespace {

constexpr std::uint64_t firstNew = ScanMemory::firstNewNumber;

using Files = std::vector<RememberedFile>;

/// A file with numbers of a scan.
RememberedFile file(std::uint64_t inode, std::uint64_t comparison, std::uint64_t content) {
    return {inode, 100, 20, 30, 10, comparison, content, 0};
}

/// The same as a scan looks it up.
RememberedFile unknown(std::uint64_t inode) {
    return file(inode, 0, 0);
}

class ScanMemoryTest : public testing::Test {
 protected:
    ScanMemory open() {
        StoreResult<ScanMemory> memory = ScanMemory::open(folder_.path(), limits_);
        if (const auto* error = std::get_if<StoreError>(&memory)) {
            ADD_FAILURE() << error->path << ": " << error->text;
            std::abort();
        }
        return std::get<ScanMemory>(std::move(memory));
    }

    StoreError openError() {
        StoreResult<ScanMemory> memory = ScanMemory::open(folder_.path(), limits_);
        EXPECT_TRUE(std::holds_alternative<StoreError>(memory));
        return std::holds_alternative<StoreError>(memory) ? std::get<StoreError>(memory)
                                                          : StoreError();
    }

    void store(const Files& files, std::uint64_t newNumbers, std::int64_t today = 1000,
               const std::string& volume = "volume") {
        ScanMemory memory = open();
        memory.begin(newNumbers, today);
        memory.add(volume, files);
        const auto error = memory.commit();
        EXPECT_FALSE(error) << error->text;
    }

    Files find(Files files, const std::string& volume = "volume") {
        ScanMemory memory = open();
        const auto error = memory.find(volume, files);
        EXPECT_FALSE(error) << error->text;
        return files;
    }

    /// Overwrites bytes of the database file.
    void patch(std::streamoff at, const std::string& bytes) const {
        std::fstream database(path(), std::ios::in | std::ios::out | std::ios::binary);
        database.seekp(at);
        database << bytes;
    }

    /// Overwrites these bytes, wherever they are in the file.
    void replace(const std::string& bytes, const std::string& with) const {
        const std::string database = contentOf(path());
        std::size_t at = database.find(bytes);
        ASSERT_NE(at, std::string::npos);
        for (; at != std::string::npos; at = database.find(bytes, at + 1)) {
            patch(static_cast<std::streamoff>(at), with);
        }
    }

    [[nodiscard]] std::string path() const { return ScanMemory::pathIn(folder_.path()); }

    TemporaryFolder folder_;
    ScanMemory::Limits limits_{.patience = std::chrono::milliseconds(10)};
};

TEST_F(ScanMemoryTest, FindsWhatWasStored) {
    store({file(5, firstNew, firstNew + 1), file(9, firstNew, firstNew + 2)}, 3);
    const Files found = find({unknown(5), unknown(7), unknown(9)});
    EXPECT_EQ(
        found,
        (Files{{5, 100, 20, 30, 10, 1, 2, 1000}, unknown(7), {9, 100, 20, 30, 10, 1, 3, 1000}}));
}

TEST_F(ScanMemoryTest, FindsFilesWhoseInodesAreFarApart) {
    const std::uint64_t last = (std::uint64_t{1} << 63U) - 1;
    store({file(1, firstNew, firstNew), file(1'000'000, firstNew, firstNew),
           file(last, firstNew, firstNew)},
          1);
    const Files found = find({unknown(1), unknown(2), unknown(1'000'000), unknown(last)});
    EXPECT_EQ(found[0].content, 1U);
    EXPECT_EQ(found[1].content, 0U);
    EXPECT_EQ(found[2].content, 1U);
    EXPECT_EQ(found[3].content, 1U);
}

TEST_F(ScanMemoryTest, FindsOneFileUnderSeveralNames) {
    store({file(5, firstNew, firstNew + 1)}, 2);
    const Files found = find({unknown(5), unknown(5), unknown(6)});
    EXPECT_EQ(found[0].content, 2U);
    EXPECT_EQ(found[1].content, 2U);
    EXPECT_EQ(found[2].content, 0U);
}

TEST_F(ScanMemoryTest, DoesNotFindAFileIfAnyPartOfItsStateIsDifferent) {
    store({file(5, firstNew, firstNew + 1)}, 2);
    const std::vector<std::function<void(RememberedFile&)>> changes{
        [](RememberedFile& each) { each.size = 101; },
        [](RememberedFile& each) { each.modified = 19; },
        [](RememberedFile& each) { each.changed = 31; },
        [](RememberedFile& each) { each.created = 11; },
        [](RememberedFile& each) { each.inode = 6; }};
    for (const auto& change : changes) {
        RememberedFile changed = unknown(5);
        change(changed);
        EXPECT_EQ(find({changed}), Files{changed});
    }
    EXPECT_EQ(find({unknown(5)}, "another volume"), Files{unknown(5)});
    EXPECT_EQ(find({unknown(5)})[0].content, 2U);
}

TEST_F(ScanMemoryTest, GivesNewNumbersThatNoFileHas) {
    store({file(1, firstNew, firstNew + 1)}, 2);
    store({file(2, firstNew, firstNew + 1)}, 2);
    store({file(3, firstNew, 2)}, 1);
    const Files found = find({unknown(1), unknown(2), unknown(3)});
    EXPECT_EQ(found[0].comparison, 1U);
    EXPECT_EQ(found[0].content, 2U);
    EXPECT_EQ(found[1].comparison, 3U);
    EXPECT_EQ(found[1].content, 4U);
    EXPECT_EQ(found[2].comparison, 5U);
    EXPECT_EQ(found[2].content, 2U);
}

TEST_F(ScanMemoryTest, GivesNewNumbersEachTimeItStores) {
    {
        ScanMemory memory = open();
        for (std::uint64_t inode = 1; inode <= 2; ++inode) {
            memory.begin(2, 1000);
            memory.add("volume", Files{file(inode, firstNew, firstNew + 1)});
            EXPECT_FALSE(memory.commit());
        }
    }
    const Files found = find({unknown(1), unknown(2)});
    EXPECT_EQ(found[0].content, 2U);
    EXPECT_EQ(found[1].content, 4U);
}

TEST_F(ScanMemoryTest, ReplacesWhatIsStoredUnderAnInode) {
    store({file(5, firstNew, firstNew + 1)}, 2);
    RememberedFile changed = file(5, firstNew, firstNew + 1);
    changed.changed = 99;
    store({changed}, 2);
    EXPECT_EQ(find({unknown(5)}), Files{unknown(5)});
}

TEST_F(ScanMemoryTest, SeparatesVolumes) {
    store({file(5, firstNew, firstNew + 1)}, 2, 1000, "one");
    store({file(5, firstNew, firstNew + 1)}, 2, 1000, "other");
    EXPECT_EQ(find({unknown(5)}, "one")[0].content, 2U);
    EXPECT_EQ(find({unknown(5)}, "other")[0].content, 4U);
}

TEST_F(ScanMemoryTest, StoresNothingWithoutACommit) {
    {
        ScanMemory memory = open();
        memory.begin(2, 1000);
        memory.add("volume", Files{file(5, firstNew, firstNew + 1)});
    }
    EXPECT_EQ(find({unknown(5)}), Files{unknown(5)});
}

TEST_F(ScanMemoryTest, DropsFilesThatWereNotStoredForALongTime) {
    limits_.maxDays = 180;
    store({file(1, firstNew, firstNew)}, 1, 1000);
    store({file(2, firstNew, firstNew)}, 1, 1180);
    EXPECT_EQ(find({unknown(1)})[0].seen, 1000);
    store({file(2, firstNew, firstNew)}, 1, 1181);
    EXPECT_EQ(find({unknown(1)}), Files{unknown(1)});
    EXPECT_EQ(find({unknown(2)})[0].seen, 1181);
}

TEST_F(ScanMemoryTest, DropsTheOldestFilesBeyondALimit) {
    limits_.maxFiles = 3;
    store({file(1, firstNew, firstNew), file(4, firstNew, firstNew)}, 1, 1001);
    store({file(2, firstNew, firstNew)}, 1, 1000);
    store({file(3, firstNew, firstNew)}, 1, 1002);
    const Files found = find({unknown(1), unknown(2), unknown(3), unknown(4)});
    EXPECT_NE(found[0].content, 0U);
    EXPECT_EQ(found[1].content, 0U);
    EXPECT_NE(found[2].content, 0U);
    EXPECT_NE(found[3].content, 0U);
}

TEST_F(ScanMemoryTest, DropsASixteenthOfTheLimitBesides) {
    limits_.maxFiles = 32;
    Files files;
    Files asked;
    for (std::uint64_t inode = 1; inode <= 33; ++inode) {
        files.push_back(file(inode, firstNew, firstNew));
        asked.push_back(unknown(inode));
    }
    store(Files(files.begin(), files.begin() + 3), 1, 1000);
    store(Files(files.begin() + 3, files.end()), 1, 1001);
    const Files found = find(asked);
    for (const RememberedFile& each : found) {
        EXPECT_EQ(each.content != 0, each.inode > 3) << each.inode;
    }
}

TEST_F(ScanMemoryTest, DropsNothingBecauseFilesAreStoredOften) {
    limits_.maxFiles = 3;
    for (int scans = 0; scans < 5; ++scans) {
        store({file(1, firstNew, firstNew), file(2, firstNew, firstNew)}, 1);
    }
    const Files found = find({unknown(1), unknown(2)});
    EXPECT_NE(found[0].content, 0U);
    EXPECT_NE(found[1].content, 0U);
}

TEST_F(ScanMemoryTest, DropsFilesThatWereStoredWithTheClockSetBack) {
    store({file(1, firstNew, firstNew)}, 1, 1100);
    store({file(2, firstNew, firstNew)}, 1, 1000);
    store({file(3, firstNew, firstNew)}, 1, 1181);
    const Files found = find({unknown(1), unknown(2), unknown(3)});
    EXPECT_NE(found[0].content, 0U);
    EXPECT_EQ(found[1].content, 0U);
    EXPECT_NE(found[2].content, 0U);
}

TEST_F(ScanMemoryTest, IsOpenedWithoutMakingIt) {
    using Opened = std::optional<ScanMemory>;
    const std::string missing = folder_.pathOf("missing");
    for (const std::string& folder : {folder_.path(), missing}) {
        const auto none = ScanMemory::openIfThere(folder, limits_);
        ASSERT_TRUE(std::holds_alternative<Opened>(none));
        EXPECT_FALSE(std::get<Opened>(none));
    }
    EXPECT_FALSE(std::filesystem::exists(path()));
    EXPECT_FALSE(std::filesystem::exists(missing));
    const std::int64_t generation = open().generation();
    {
        const auto there = ScanMemory::openIfThere(folder_.path(), limits_);
        ASSERT_TRUE(std::holds_alternative<Opened>(there));
        ASSERT_TRUE(std::get<Opened>(there));
        EXPECT_EQ(std::get<Opened>(there)->generation(), generation);
    }
    folder_.writeFile("scans.sqlite", std::string(5000, 'x'));
    const auto damaged = ScanMemory::openIfThere(folder_.path(), limits_);
    ASSERT_TRUE(std::holds_alternative<StoreError>(damaged));
    EXPECT_EQ(std::get<StoreError>(damaged).kind, StoreError::Kind::unusable);
}

TEST_F(ScanMemoryTest, IsReadableByItsUserAlone) {
    store({file(5, firstNew, firstNew)}, 1);
    struct stat status{};
    ASSERT_EQ(::stat(path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(ScanMemoryTest, MakesAMissingFolder) {
    const std::string folder = folder_.pathOf("a/b");
    EXPECT_TRUE(std::holds_alternative<ScanMemory>(ScanMemory::open(folder, limits_)));
}

TEST_F(ScanMemoryTest, HasItsOwnGeneration) {
    const std::int64_t first = open().generation();
    EXPECT_EQ(open().generation(), first);
    ASSERT_TRUE(std::get<bool>(ScanMemory::remove(folder_.path())));
    EXPECT_NE(open().generation(), first);
}

TEST_F(ScanMemoryTest, RemovingItRemovesTheFiles) {
    store({file(5, firstNew, firstNew)}, 1);
    folder_.writeFile("scans.sqlite-journal", "rest");
    EXPECT_TRUE(std::get<bool>(ScanMemory::remove(folder_.path())));
    EXPECT_FALSE(std::filesystem::exists(path()));
    EXPECT_FALSE(std::filesystem::exists(path() + "-journal"));
    EXPECT_FALSE(std::get<bool>(ScanMemory::remove(folder_.path())));
    EXPECT_FALSE(std::get<bool>(ScanMemory::remove(folder_.pathOf("missing"))));
    EXPECT_FALSE(std::filesystem::exists(folder_.pathOf("missing")));
}

TEST_F(ScanMemoryTest, IsRefusedWhileAnotherOneIsOpen) {
    const ScanMemory other = open();
    const StoreError error = openError();
    EXPECT_EQ(error.path, path());
    EXPECT_EQ(error.text, "in use by another process");
    EXPECT_EQ(error.kind, StoreError::Kind::passing);
    const StoreResult<bool> removed = ScanMemory::remove(folder_.path(), limits_);
    ASSERT_TRUE(std::holds_alternative<StoreError>(removed));
    EXPECT_EQ(std::get<StoreError>(removed).text, "in use by another process");
    EXPECT_TRUE(std::filesystem::exists(path()));
}

TEST_F(ScanMemoryTest, OfANewerVersionIsLeftAsItIs) {
    store({file(5, firstNew, firstNew)}, 1);
    patch(60, std::string("\0\0\0\3", 4));
    const std::string before = contentOf(path());
    const StoreError error = openError();
    EXPECT_EQ(error.text, "written by a newer version of the program");
    EXPECT_EQ(error.kind, StoreError::Kind::passing);
    EXPECT_EQ(contentOf(path()), before);
}

TEST_F(ScanMemoryTest, OfAnOlderVersionIsReplaced) {
    store({file(5, firstNew, firstNew)}, 1);
    const std::int64_t generation = open().generation();
    patch(60, std::string("\0\0\0\1", 4));
    EXPECT_EQ(find({unknown(5)}), Files{unknown(5)});
    EXPECT_NE(open().generation(), generation);
    store({file(5, firstNew, firstNew)}, 1);
    EXPECT_EQ(find({unknown(5)})[0].content, 1U);
}

TEST_F(ScanMemoryTest, OfAnOlderVersionOfAnotherProgramIsUnusable) {
    store({file(5, firstNew, firstNew)}, 1);
    patch(60, std::string("\0\0\0\1", 4));
    patch(68, "else");
    const std::string before = contentOf(path());
    EXPECT_EQ(openError().text, "a database of another program");
    EXPECT_EQ(contentOf(path()), before);
}

TEST_F(ScanMemoryTest, ThatIsNotADatabaseIsUnusable) {
    folder_.writeFile("scans.sqlite", std::string(5000, 'x'));
    EXPECT_EQ(openError().text, "the file is damaged");
    EXPECT_EQ(openError().kind, StoreError::Kind::unusable);
}

TEST_F(ScanMemoryTest, DoesNotFindARowThatIsNotAsItWasWritten) {
    constexpr std::int64_t size = 0x1122334455667788;
    RememberedFile stored = file(5, firstNew, firstNew);
    stored.size = size;
    store({stored}, 1);
    const std::string database = contentOf(path());
    const std::size_t at = database.find("\x11\x22\x33\x44\x55\x66\x77\x88");
    ASSERT_NE(at, std::string::npos);
    RememberedFile asked = unknown(5);
    asked.size = size;
    EXPECT_NE(find({asked})[0].content, 0U);
    patch(static_cast<std::streamoff>(at) + 7, "\x89");
    asked.size = size + 1;
    EXPECT_EQ(find({asked}), Files{asked});
}

// A lower number would be given to files although others have it already.
TEST_F(ScanMemoryTest, WithAChangedNextNumberIsUnusable) {
    store({file(5, firstNew, firstNew)}, 0x1122334455667787);
    find({unknown(5)});
    replace("\x11\x22\x33\x44\x55\x66\x77\x88", "\x11\x22\x33\x44\x55\x66\x77\x08");
    EXPECT_EQ(openError().text, "the file is damaged");
    EXPECT_EQ(openError().kind, StoreError::Kind::unusable);
}

TEST_F(ScanMemoryTest, WithANumberThatIsStillFreeIsUnusable) {
    for (const RememberedFile& wrong : {file(5, 2, 1), file(5, 1, 2)}) {
        ASSERT_TRUE(std::holds_alternative<bool>(ScanMemory::remove(folder_.path())));
        store({wrong}, 1);
        Files files{unknown(5)};
        const auto error = open().find("volume", files);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->kind, StoreError::Kind::unusable);
        EXPECT_EQ(files, Files{unknown(5)});
    }
}

TEST_F(ScanMemoryTest, WithAChangedNameOfAVolumeIsUnusable) {
    store({file(5, firstNew, firstNew)}, 1, 1000, "volume-1");
    replace("volume-1", "volume-3");
    Files files{unknown(5)};
    const auto error = open().find("volume-3", files);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->kind, StoreError::Kind::unusable);
    EXPECT_EQ(files, Files{unknown(5)});
}

TEST_F(ScanMemoryTest, OnAFullDiskKeepsWhatItHas) {
    store({file(5, firstNew, firstNew)}, 1);
    Files many;
    for (std::uint64_t inode = 10; inode < 3000; ++inode) {
        many.push_back(file(inode, firstNew, firstNew));
    }
    {
        ScanMemory memory = open();
        FileSizeLimit limit;
        limit.set(64 * 1024);
        memory.begin(1, 1000);
        memory.add("volume", many);
        const auto error = memory.commit();
        limit.lift();
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path, path());
        EXPECT_EQ(error->kind, StoreError::Kind::passing);
    }
    EXPECT_EQ(find({unknown(5)})[0].content, 1U);
    EXPECT_EQ(find({unknown(10)}), Files{unknown(10)});
}

}  // namespace
}  // namespace tarvin
