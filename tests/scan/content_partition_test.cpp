#include "scan/content_partition.h"

#include "support/comparison_fixture.h"
#include "support/faulty_file_system.h"
#include "support/pairwise_finder.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <mutex>
#include <ostream>
#include <thread>
#include <tuple>

namespace tarvin {
namespace {

constexpr std::uint64_t firstBlock = ComparisonOrder::edgeBytes;

#ifdef TARVIN_SANITIZED
constexpr std::chrono::milliseconds quickly{2000};
#else
constexpr std::chrono::milliseconds quickly{200};
#endif

/// Compares files through a file system that counts calls and injects faults.
class Comparison : public ::testing::Test {
 protected:
    /// A sparse file of that size; all bytes are zero except `mark` at offset `place`.
    std::string sparse(std::string_view name, std::uint64_t size, std::uint64_t place = 0,
                       std::string_view mark = {}) {
        const std::string path = fixture_.folder().writeFile(name, "");
        std::filesystem::resize_file(path, size);
        if (!mark.empty()) {
            std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
            file.seekp(static_cast<std::streamoff>(place));
            file.write(mark.data(), static_cast<std::streamsize>(mark.size()));
        }
        fixture_.addPath(path, size);
        return path;
    }

    PlainResult find() { return plainResultOf(*fixture_.find()); }

    static PlainResult oneSet(std::vector<std::string> paths) {
        return {{"txt", {std::move(paths)}}};
    }

    FaultyFileSystem fileSystem_;
    ComparisonFixture fixture_{fileSystem_};
};

TEST_F(Comparison, DoesNotOpenFilesOfUniqueSize) {
    fixture_.add("a.txt", "1");
    fixture_.add("b.txt", "22");
    fixture_.add("c.txt", "333");
    EXPECT_EQ(find(), PlainResult{});
    EXPECT_EQ(fileSystem_.calls(FileCall::openFile), 0U);
    EXPECT_EQ(fileSystem_.calls(FileCall::attributesOf), 0U);
}

TEST_F(Comparison, ReadsSmallFilesOnce) {
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        fixture_.add(name, noise(9'000, 5));
    }
    find();
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        EXPECT_EQ(fileSystem_.bytesRead(fixture_.folder().pathOf(name)), 9'000U);
        EXPECT_EQ(fileSystem_.opens(fixture_.folder().pathOf(name)), 1U);
    }
}

TEST_F(Comparison, ReadsLargeEqualFilesOnce) {
    const std::string a = sparse("a.txt", 30'000'001, 29'999'999, "x");
    const std::string b = sparse("b.txt", 30'000'001, 29'999'999, "x");
    EXPECT_EQ(find(), oneSet({a, b}));
    EXPECT_EQ(fileSystem_.bytesRead(a), 30'000'001U);
    EXPECT_EQ(fileSystem_.bytesRead(b), 30'000'001U);
    EXPECT_EQ(fileSystem_.opens(a), 1U);
}

TEST_F(Comparison, FindsADifferenceAtTheEndBeforeReadingTheMiddle) {
    const std::string a = sparse("a.txt", 50'000'000, 49'999'999, "x");
    const std::string b = sparse("b.txt", 50'000'000, 49'999'999, "y");
    EXPECT_EQ(find(), PlainResult{});
    EXPECT_LE(fileSystem_.bytesRead(a), 2 * firstBlock);
    EXPECT_LE(fileSystem_.bytesRead(b), 2 * firstBlock);
}

TEST_F(Comparison, DifferenceInTheMiddleEndsTheReading) {
    const std::string a = sparse("a.txt", 200'000'000, 1'000'000, "x");
    const std::string b = sparse("b.txt", 200'000'000, 1'000'000, "y");
    EXPECT_EQ(find(), PlainResult{});
    EXPECT_LT(fileSystem_.bytesRead(a), 40'000'000U);
}

TEST_F(Comparison, BytesOfUniqueSizesAreNotToBeCompared) {
    fixture_.add("a.txt", "1");
    fixture_.add("b.txt", "22");
    fixture_.add("c.txt", "333");
    fixture_.add("d.txt", "444");
    find();
    EXPECT_EQ(fixture_.bytes(), (BytesCompared{6, 6}));
}

TEST_F(Comparison, FilesThatDifferEarlyCountInFull) {
    sparse("a.txt", 50'000'000, 0, "x");
    sparse("b.txt", 50'000'000, 0, "y");
    sparse("c.txt", 50'000'000, 0, "z");
    find();
    EXPECT_EQ(fixture_.bytes(), (BytesCompared{150'000'000, 150'000'000}));
}

TEST_F(Comparison, UnreadableFilesCountInFull) {
    sparse("a.txt", 20'000'000);
    sparse("b.txt", 20'000'000);
    sparse("c.txt", 20'000'000);
    fileSystem_.failCall(FileCall::readAt, 40, EIO, "b.txt");
    find();
    EXPECT_EQ(fixture_.bytes(), (BytesCompared{60'000'000, 60'000'000}));
}

TEST_F(Comparison, CountsHugeFilesUpToTheLargestNumber) {
    // 9 EB each, as a sparse file can be. They are not there, so nothing is read.
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        fixture_.addPath(fixture_.folder().pathOf(name), 9'000'000'000'000'000'000);
    }
    EXPECT_EQ(find(), PlainResult{});
    EXPECT_EQ(fixture_.bytes(),
              (BytesCompared{18'446'744'073'709'551'615U, 18'446'744'073'709'551'615U}));
}

TEST_F(Comparison, CountsRecordedSizesOfFilesThatHaveGrown) {
    const std::string small = fixture_.folder().writeFile("a.txt", noise(100, 1));
    const std::string large = fixture_.folder().writeFile("b.txt", noise(40'000, 1));
    const std::string largeToo = fixture_.folder().writeFile("c.txt", noise(40'000, 1));
    for (const std::string& path : {small, large, largeToo}) {
        fixture_.addPath(path, 100);
    }
    EXPECT_EQ(find(), oneSet({large, largeToo}));
    EXPECT_EQ(fixture_.bytes(), (BytesCompared{300, 300}));
}

TEST_F(Comparison, CountsBytesWhileALargeFileIsRead) {
    sparse("a.txt", 40'000'000);
    sparse("b.txt", 40'000'000);
    std::mutex mutex;
    std::vector<std::uint64_t> seen;  // bytes read and not yet counted, at each read
    bool isMonotonic = true;
    BytesCompared last{0, 80'000'000};
    fileSystem_.beforeCall(FileCall::readAt, FaultyFileSystem::each, [&] {
        const std::lock_guard lock(mutex);
        const BytesCompared now = fixture_.bytes();
        isMonotonic = isMonotonic && now.done >= last.done && now.total == last.total;
        last = now;
        const std::uint64_t read = fileSystem_.bytesRead();
        seen.push_back(read > now.done ? read - now.done : 0);
    });
    find();
    EXPECT_TRUE(isMonotonic);
    EXPECT_GT(seen.size(), 100U);
    // A chunk of each thread.
    EXPECT_LE(*std::max_element(seen.begin(), seen.end()), 4U * 1024 * 1024);
    EXPECT_EQ(fixture_.bytes(), (BytesCompared{80'000'000, 80'000'000}));
}

/// Sizes at which the method of comparison changes, with differences at different offsets.
class ReadingOnce : public Comparison, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(ReadingOnce, HoldsForEveryFileOfTheClass) {
    constexpr std::uint64_t size = 600'000;
    const std::size_t count = GetParam();
    std::vector<std::string> paths;
    for (std::size_t number = 0; number < count; ++number) {
        // A third is equal, a third differs after the first block, a third late in the middle.
        const std::string mark(1, static_cast<char>('a' + number % 20));
        const std::uint64_t place = number % 3 == 1 ? firstBlock + number : 500'000;
        paths.push_back(sparse(std::to_string(number) + ".txt", size, place,
                               number % 3 == 0 ? std::string() : mark));
    }
    const PlainResult expected = findPairwise(fixture_.list());
    EXPECT_EQ(find(), expected);
    EXPECT_EQ(fixture_.bytes(), (BytesCompared{count * size, count * size}));
    const std::uint64_t again = count > 64 ? firstBlock : 0;
    for (const std::string& path : paths) {
        EXPECT_LE(fileSystem_.bytesRead(path), size + again) << path;
    }
}

INSTANTIATE_TEST_SUITE_P(ClassSizes, ReadingOnce,
                         ::testing::Values(2, 5, 31, 33, 64, 65, 129, 400));

TEST_F(Comparison, ManyFilesThatDifferAfterTheFirstBlockAreReadNoFurther) {
    // All different: one chunk of each must fit into the buffers.
    std::vector<std::string> paths;
    for (unsigned number = 0; number < 3'000; ++number) {
        const std::string mark = std::to_string(number);
        paths.push_back(sparse(mark + ".txt", 1'000'000, firstBlock * 2, "#" + mark + "#"));
    }
    EXPECT_EQ(find(), PlainResult{});
    // First block twice, last block, the next, and the chunk that differs. The reference file was
    // read further.
    EXPECT_LE(std::count_if(paths.begin(), paths.end(),
                            [this](const std::string& path) {
                                return fileSystem_.bytesRead(path) > 5 * firstBlock;
                            }),
              1);
    EXPECT_GT(fixture_.finder().bufferBytes(), 0U);
    EXPECT_LE(fixture_.finder().bufferBytes(), 64U * 1024 * 1024);
}

TEST_F(Comparison, TenThousandEqualFilesUnderALimitOf64Descriptors) {
    fileSystem_.setDescriptorLimit(64);
    fileSystem_.refuseMoreDescriptorsThan(64 - 16);
    ComparisonFixture fixture(fileSystem_);
    std::vector<std::string> paths;
    for (int number = 0; number < 10'000; ++number) {
        const std::string path = fixture.folder().writeFile(std::to_string(number) + ".txt", "");
        std::filesystem::resize_file(path, 20'000);
        fixture.addPath(path, 20'000);
        paths.push_back(path);
    }
    EXPECT_EQ(plainResultOf(*fixture.find()), oneSet(paths));
    EXPECT_LE(fileSystem_.openAtMost(), 64U - 16U);
    for (const std::string& path : paths) {
        ASSERT_LE(fileSystem_.bytesRead(path), 20'000U + firstBlock);
    }
}

TEST_F(Comparison, FortyThousandEmptyFilesAreOneSet) {
    std::vector<std::string> paths;
    for (int number = 0; number < 40'000; ++number) {
        paths.push_back(fixture_.add(std::to_string(number) + ".txt", "")->filePath());
    }
    EXPECT_EQ(find(), oneSet(paths));
    EXPECT_EQ(fileSystem_.bytesRead(), 0U);
}

TEST_F(Comparison, WaitsOutAShortageOfDescriptors) {
    const std::string a = fixture_.add("a.txt", "same")->filePath();
    const std::string b = fixture_.add("b.txt", "same")->filePath();
    fileSystem_.failCall(FileCall::openFile, 1, EMFILE);
    fileSystem_.failCall(FileCall::openFile, 3, ENFILE);
    EXPECT_EQ(find(), oneSet({a, b}));
}

/// The size of a class of equal files, which determines the method of comparison.
struct ClassOfFiles {
    std::uint64_t size;
    std::size_t count;
};

void PrintTo(const ClassOfFiles& files,
             std::ostream* out) {  // NOLINT(readability-identifier-naming)
    *out << files.count << " of " << files.size << " bytes";
}

std::string nameOf(const ::testing::TestParamInfo<ClassOfFiles>& info) {
    return std::to_string(info.param.count) + "Of" + std::to_string(info.param.size);
}

/// A fault of the second of several equal files must not affect the others.
class OneOfEqualFiles : public Comparison, public ::testing::WithParamInterface<ClassOfFiles> {
 protected:
    void SetUp() override {
        for (std::size_t number = 0; number < GetParam().count; ++number) {
            others_.push_back(sparse(std::to_string(number) + ".txt", GetParam().size));
        }
        first_ = others_.front();
        victim_ = others_[1];
        others_.erase(others_.begin() + 1);
    }

    void expectTheOthers() { EXPECT_EQ(find(), oneSet(others_)); }

    std::vector<std::string> others_;
    std::string first_;
    std::string victim_;
};

TEST_P(OneOfEqualFiles, CannotBeOpened) {
    fileSystem_.failCall(FileCall::openFile, FaultyFileSystem::each, EACCES, victim_);
    expectTheOthers();
}

TEST_P(OneOfEqualFiles, HasNoAttributes) {
    fileSystem_.failCall(FileCall::attributesOf, 1, EIO, victim_);
    expectTheOthers();
}

TEST_P(OneOfEqualFiles, FailsAtItsFirstRead) {
    fileSystem_.failCall(FileCall::readAt, 1, EIO, victim_);
    expectTheOthers();
}

TEST_P(OneOfEqualFiles, IsDeletedBefore) {
    std::filesystem::remove(victim_);
    expectTheOthers();
}

TEST_P(OneOfEqualFiles, IsDeletedJustBeforeItIsOpened) {
    fileSystem_.beforeCall(
        FileCall::openFile, 1, [this] { std::filesystem::remove(victim_); }, victim_);
    expectTheOthers();
}

TEST_P(OneOfEqualFiles, HasBecomeAPipe) {
    std::filesystem::remove(victim_);
    ASSERT_EQ(::mkfifo(victim_.c_str(), 0600), 0);
    expectTheOthers();
}

TEST_P(OneOfEqualFiles, HasBecomeAFolder) {
    std::filesystem::remove(victim_);
    std::filesystem::create_directory(victim_);
    expectTheOthers();
}

TEST_P(OneOfEqualFiles, HasBecomeALinkToAnotherOfThem) {
    std::filesystem::remove(victim_);
    std::filesystem::create_symlink(first_, victim_);
    expectTheOthers();
}

TEST_P(OneOfEqualFiles, HasBecomeALinkToADevice) {
    std::filesystem::remove(victim_);
    std::filesystem::create_symlink("/dev/zero", victim_);
    expectTheOthers();
    EXPECT_EQ(fileSystem_.bytesRead(victim_), 0U);
}

TEST_P(OneOfEqualFiles, ShrinksWhileItIsRead) {
    fileSystem_.beforeCall(
        FileCall::readAt, 1, [this] { std::filesystem::resize_file(victim_, GetParam().size / 2); },
        victim_);
    expectTheOthers();
}

TEST_P(OneOfEqualFiles, HasShrunkBefore) {
    std::filesystem::resize_file(victim_, GetParam().size - 1);
    expectTheOthers();
}

TEST_P(OneOfEqualFiles, HasGrownBefore) {
    std::filesystem::resize_file(victim_, GetParam().size + 1);
    expectTheOthers();
}

// Read whole; kept open; opened for each range; split by hashes first.
INSTANTIATE_TEST_SUITE_P(Ways, OneOfEqualFiles,
                         ::testing::Values(ClassOfFiles{100, 3}, ClassOfFiles{16'384, 3},
                                           ClassOfFiles{16'385, 3}, ClassOfFiles{400'000, 3},
                                           ClassOfFiles{9'000'000, 3}, ClassOfFiles{100, 40},
                                           ClassOfFiles{60'000, 40}, ClassOfFiles{100, 100},
                                           ClassOfFiles{60'000, 100}),
                         nameOf);

/// A file that changes after a part of it has been read.
class OneOfFilesInReading : public OneOfEqualFiles {
 protected:
    void replaceAtFirstRead(const std::function<void()>& makeAnother) {
        fileSystem_.beforeCall(
            FileCall::readAt, 1,
            [this, makeAnother] {
                std::filesystem::remove(victim_);
                makeAnother();
            },
            victim_);
    }
};

TEST_P(OneOfFilesInReading, BecomesAPipe) {
    replaceAtFirstRead([this] { ASSERT_EQ(::mkfifo(victim_.c_str(), 0600), 0); });
    expectTheOthers();
}

TEST_P(OneOfFilesInReading, BecomesAFolder) {
    replaceAtFirstRead([this] { std::filesystem::create_directory(victim_); });
    expectTheOthers();
}

TEST_P(OneOfFilesInReading, BecomesALinkToAnotherOfThem) {
    replaceAtFirstRead([this] { std::filesystem::create_symlink(first_, victim_); });
    expectTheOthers();
}

TEST_P(OneOfFilesInReading, BecomesALinkToADevice) {
    replaceAtFirstRead([this] { std::filesystem::create_symlink("/dev/zero", victim_); });
    expectTheOthers();
}

TEST_P(OneOfFilesInReading, IsDeleted) {
    replaceAtFirstRead([] {});
    expectTheOthers();
}

TEST_P(OneOfFilesInReading, BecomesUnreadable) {
    fileSystem_.failCall(FileCall::readAt, 2, EACCES, victim_);
    expectTheOthers();
}

TEST_P(OneOfFilesInReading, HasNoAttributesWhenCheckedAgain) {
    fileSystem_.failCall(FileCall::attributesOf, 2, EIO, victim_);
    expectTheOthers();
}

INSTANTIATE_TEST_SUITE_P(Ways, OneOfFilesInReading,
                         ::testing::Values(ClassOfFiles{60'000, 3}, ClassOfFiles{60'000, 40},
                                           ClassOfFiles{60'000, 100}, ClassOfFiles{9'000'000, 3}),
                         nameOf);

TEST_F(Comparison, FailsAtAnyOfItsReads) {
    for (std::uint64_t nth = 2; nth < 6; ++nth) {
        FaultyFileSystem fileSystem;
        ComparisonFixture fixture(fileSystem);
        std::vector<std::string> paths;
        for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
            paths.push_back(fixture.add(name, noise(700'000, 3))->filePath());
        }
        fileSystem.failCall(FileCall::readAt, nth, EIO, paths[1]);
        EXPECT_EQ(plainResultOf(*fixture.find()), oneSet({paths[0], paths[2]})) << nth;
    }
}

TEST_F(Comparison, TheReferenceFileMayFail) {
    std::vector<std::string> paths;
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        paths.push_back(fixture_.add(name, noise(700'000, 3))->filePath());
    }
    fileSystem_.failCall(FileCall::readAt, 3, EIO, paths[0]);
    EXPECT_EQ(find(), oneSet({paths[1], paths[2]}));
}

TEST_F(Comparison, FileWrittenDuringTheReadingIsInNoSet) {
    std::vector<std::string> paths;
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        paths.push_back(fixture_.add(name, noise(700'000, 3))->filePath());
    }
    fileSystem_.beforeCall(
        FileCall::readAt, 3,
        [&paths] { std::ofstream(paths[1], std::ios::binary | std::ios::app) << "more"; },
        paths[1]);
    EXPECT_EQ(find(), oneSet({paths[0], paths[2]}));
}

TEST_F(Comparison, FileReplacedBetweenTwoReadsIsInNoSet) {
    // More files than are kept open, so that each is opened for each range.
    std::vector<std::string> paths;
    for (int number = 0; number < 40; ++number) {
        paths.push_back(
            fixture_.add(std::to_string(number) + ".txt", noise(100'000, 3))->filePath());
    }
    const std::string replaced = paths[7];
    fileSystem_.beforeCall(
        FileCall::openFile, 3,
        [&replaced, this] {
            const std::string copy = fixture_.folder().writeFile("copy", noise(100'000, 3));
            std::filesystem::rename(copy, replaced);
        },
        replaced);
    paths.erase(paths.begin() + 7);
    EXPECT_EQ(find(), oneSet(paths));
}

TEST_F(Comparison, HardLinksAreEqualFiles) {
    const std::string a = fixture_.add("a.txt", "same")->filePath();
    const std::string b = fixture_.folder().pathOf("b.txt");
    std::filesystem::create_hard_link(a, b);
    fixture_.addPath(b, 4);
    EXPECT_EQ(find(), oneSet({a, b}));
}

/// One file under two paths, small and large.
class OneFileTwice : public Comparison, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(OneFileTwice, UnderTheSamePathIsNotItsOwnDuplicate) {
    const std::string a = fixture_.add("a.txt", noise(GetParam(), 1))->filePath();
    fixture_.addPath(a, GetParam());
    EXPECT_EQ(find(), PlainResult{});
}

TEST_P(OneFileTwice, HardLinkedIsEqualToItsOtherNameOnly) {
    const std::string a = fixture_.add("a.txt", noise(GetParam(), 1))->filePath();
    const std::string b = fixture_.folder().pathOf("b.txt");
    std::filesystem::create_hard_link(a, b);
    fixture_.addPath(a, GetParam());
    fixture_.addPath(b, GetParam());
    EXPECT_EQ(find(), oneSet({a, b}));
}

TEST_P(OneFileTwice, ThroughAFolderThatBecameALinkIsNotItsOwnDuplicate) {
    const std::string a = fixture_.add("one/a.txt", noise(GetParam(), 1))->filePath();
    fixture_.folder().makeLink("two", fixture_.folder().pathOf("one"));
    fixture_.addPath(fixture_.folder().pathOf("two/a.txt"), GetParam());
    EXPECT_EQ(find(), PlainResult{});
}

TEST_P(OneFileTwice, LeavesItsRealDuplicatesInTheSet) {
    const std::string a = fixture_.add("a.txt", noise(GetParam(), 1))->filePath();
    fixture_.addPath(a, GetParam());
    const std::string b = fixture_.add("b.txt", noise(GetParam(), 1))->filePath();
    EXPECT_EQ(find(), oneSet({a, b}));
}

INSTANTIATE_TEST_SUITE_P(Sizes, OneFileTwice, ::testing::Values(5, 30'000, 9'000'000));

/// For each method of comparison: a file that grows between the reading of its attributes and that
/// of its content is in no set.
class GrowingFile : public Comparison,
                    public ::testing::WithParamInterface<std::tuple<std::size_t, int>> {};

TEST_P(GrowingFile, IsInNoSet) {
    const auto& [size, count] = GetParam();
    std::vector<std::string> paths;
    for (int number = 0; number < count; ++number) {
        paths.push_back(fixture_.add(std::to_string(number) + ".txt", noise(size, 3))->filePath());
    }
    const std::string grows = paths[1];
    fileSystem_.beforeCall(
        FileCall::readAt, 1,
        [&grows] { std::ofstream(grows, std::ios::binary | std::ios::app) << "more"; }, grows);
    paths.erase(paths.begin() + 1);
    EXPECT_EQ(find(), oneSet(paths));
}

INSTANTIATE_TEST_SUITE_P(Ways, GrowingFile,
                         ::testing::Combine(::testing::Values(100, 16'384, 60'000),
                                            ::testing::Values(3, 40, 100)));

TEST_F(Comparison, FilesOfReportedSizeZeroWithContentAreInNoSet) {
    // Such as files of pseudo file systems, whose content is generated when they are read.
    fixture_.addPath("/proc/self/status", 0);
    fixture_.addPath("/proc/self/limits", 0);
    EXPECT_EQ(find(), PlainResult{});
}

TEST_F(Comparison, DeviceInTheListIsNotRead) {
    fixture_.addPath("/dev/zero", 100);
    const std::string a = fixture_.add("a.txt", noise(100, 1))->filePath();
    const std::string b = fixture_.add("b.txt", noise(100, 1))->filePath();
    EXPECT_EQ(find(), oneSet({a, b}));
    EXPECT_EQ(fileSystem_.bytesRead("/dev/zero"), 0U);
}

/// A rotational disk of which nothing is cached.
class ComparisonOnADiskThatRotates : public Comparison {
 protected:
    ComparisonOnADiskThatRotates() {
        fileSystem_.setRotational(true);
        fileSystem_.failCall(FileCall::readCachedAt, FaultyFileSystem::each, EAGAIN);
        // Others get the chance to read, too.
        fileSystem_.beforeCall(FileCall::readAt, FaultyFileSystem::each,
                               [] { std::this_thread::yield(); });
    }

    ComparisonFixture wide_{fileSystem_, {4, 8}};
};

TEST_F(ComparisonOnADiskThatRotates, HasOneReaderAtATime) {
    for (int number = 0; number < 400; ++number) {
        wide_.add(std::to_string(number) + ".txt", noise(number % 2 == 0 ? 3'000 : 90'000, 3));
    }
    EXPECT_EQ(wide_.find()->totalFiles(), 398U);
    EXPECT_EQ(fileSystem_.readersOfOneDeviceAtMost(), 1U);
}

TEST_F(ComparisonOnADiskThatRotates, HasOneReaderForAllItsVolumes) {
    fileSystem_.setRotationalDisk(7);
    for (std::uint64_t number = 1; number <= 400; ++number) {
        const File* const file = wide_.add(std::to_string(number) + ".txt", noise(3'000, 3));
        fileSystem_.setIdentity(file->filePath(), {number % 2 + 1, number});
    }
    EXPECT_EQ(wide_.find()->totalFiles(), 399U);
    // All are on one device of this machine.
    EXPECT_EQ(fileSystem_.readersOfOneDeviceAtMost(), 1U);
}

/// Equal files that take long to compare: two huge ones, or very many.
class LongComparison : public Comparison, public ::testing::WithParamInterface<ClassOfFiles> {
 protected:
    void SetUp() override {
        for (std::size_t number = 0; number < GetParam().count; ++number) {
            sparse(std::to_string(number) + ".txt", GetParam().size);
        }
    }

    void begin() {
        comparison_ = std::thread([this] { result_ = find(); });
        ASSERT_TRUE(
            waitUntil([this] { return fixture_.finder().bytesRead() > bytesInAll() / 200; }));
    }

    [[nodiscard]] static std::uint64_t bytesInAll() { return GetParam().size * GetParam().count; }

    void TearDown() override {
        fixture_.control().setStop(true);
        fixture_.control().setPause(false);
        if (comparison_.joinable()) {
            comparison_.join();
        }
    }

    void expectAStopToActAtOnce() {
        const auto requested = std::chrono::steady_clock::now();
        fixture_.control().setStop(true);
        comparison_.join();
        EXPECT_LT(std::chrono::steady_clock::now() - requested, quickly);
        EXPECT_EQ(result_, PlainResult{});
    }

    std::thread comparison_;
    PlainResult result_;
};

TEST_P(LongComparison, StopTakesEffectAtOnceAndKeepsOnlyConfirmedSets) {
    begin();
    expectAStopToActAtOnce();
}

TEST_P(LongComparison, StopTakesEffectAtOnceOnARotationalDisk) {
    fileSystem_.setRotational(true);
    begin();
    expectAStopToActAtOnce();
}

TEST_P(LongComparison, PauseTakesEffectAtOnce) {
    begin();
    const auto requested = std::chrono::steady_clock::now();
    fixture_.control().setPause(true);
    // Nothing is read once the current chunks are done: wait until the count is stable.
    std::uint64_t before = 0;
    auto still = requested;
    while (std::chrono::steady_clock::now() - still < quickly / 4) {
        const std::uint64_t now = fileSystem_.bytesRead();
        if (now != before) {
            before = now;
            still = std::chrono::steady_clock::now();
        }
        ASSERT_LT(still - requested, quickly);
        std::this_thread::yield();
    }
    EXPECT_LT(before, bytesInAll());
}

INSTANTIATE_TEST_SUITE_P(Ways, LongComparison,
                         ::testing::Values(ClassOfFiles{10'000'000'000, 2},
                                           ClassOfFiles{100'000, 20'000}),
                         nameOf);

}  // namespace
}  // namespace tarvin
