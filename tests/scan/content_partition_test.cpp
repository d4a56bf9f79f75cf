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

/// Files that are compared through a file system that counts and fails.
class Comparison : public ::testing::Test {
 protected:
    /// A file of that size that occupies no room; its bytes are zero except where `mark` stands.
    std::string sparse(std::string_view name, std::uint64_t size, std::uint64_t place = 0,
                       std::string_view mark = {}) {
        const std::string path = bench_.folder().writeFile(name, "");
        std::filesystem::resize_file(path, size);
        if (!mark.empty()) {
            std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
            file.seekp(static_cast<std::streamoff>(place));
            file.write(mark.data(), static_cast<std::streamsize>(mark.size()));
        }
        bench_.addPath(path, size);
        return path;
    }

    PlainResult find() { return plainResultOf(*bench_.find()); }

    static PlainResult oneSet(std::vector<std::string> paths) {
        return {{"txt", {std::move(paths)}}};
    }

    FaultyFileSystem fileSystem_;
    ComparisonFixture bench_{fileSystem_};
};

TEST_F(Comparison, OpensNothingWhoseSizeIsUnique) {
    bench_.add("a.txt", "1");
    bench_.add("b.txt", "22");
    bench_.add("c.txt", "333");
    EXPECT_EQ(find(), PlainResult{});
    EXPECT_EQ(fileSystem_.calls(FileCall::openFile), 0U);
    EXPECT_EQ(fileSystem_.calls(FileCall::attributesOf), 0U);
}

TEST_F(Comparison, ReadsSmallFilesOnce) {
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        bench_.add(name, noise(9'000, 5));
    }
    find();
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        EXPECT_EQ(fileSystem_.bytesRead(bench_.folder().pathOf(name)), 9'000U);
        EXPECT_EQ(fileSystem_.opens(bench_.folder().pathOf(name)), 1U);
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

TEST_F(Comparison, ADifferenceAtTheEndIsSeenBeforeTheMiddleIsRead) {
    const std::string a = sparse("a.txt", 50'000'000, 49'999'999, "x");
    const std::string b = sparse("b.txt", 50'000'000, 49'999'999, "y");
    EXPECT_EQ(find(), PlainResult{});
    EXPECT_LE(fileSystem_.bytesRead(a), 2 * firstBlock);
    EXPECT_LE(fileSystem_.bytesRead(b), 2 * firstBlock);
}

TEST_F(Comparison, ADifferenceInTheMiddleEndsTheReading) {
    const std::string a = sparse("a.txt", 200'000'000, 1'000'000, "x");
    const std::string b = sparse("b.txt", 200'000'000, 1'000'000, "y");
    EXPECT_EQ(find(), PlainResult{});
    EXPECT_LT(fileSystem_.bytesRead(a), 40'000'000U);
}

/// Sizes at which the way of comparing changes, with differences at telling places.
class ReadingOnce : public Comparison, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(ReadingOnce, HoldsForEveryFileOfTheClass) {
    constexpr std::uint64_t size = 600'000;
    const std::size_t count = GetParam();
    std::vector<std::string> paths;
    for (std::size_t number = 0; number < count; ++number) {
        // A third is equal, a third differs behind the first block, a third late in the middle.
        const std::string mark(1, static_cast<char>('a' + number % 20));
        const std::uint64_t place = number % 3 == 1 ? firstBlock + number : 500'000;
        paths.push_back(sparse(std::to_string(number) + ".txt", size, place,
                               number % 3 == 0 ? std::string() : mark));
    }
    const PlainResult expected = findPairwise(bench_.list());
    EXPECT_EQ(find(), expected);
    const std::uint64_t again = count > 64 ? firstBlock : 0;
    for (const std::string& path : paths) {
        EXPECT_LE(fileSystem_.bytesRead(path), size + again) << path;
    }
}

INSTANTIATE_TEST_SUITE_P(ClassSizes, ReadingOnce,
                         ::testing::Values(2, 5, 31, 33, 64, 65, 129, 400));

TEST_F(Comparison, ManyFilesThatDifferBehindTheFirstBlockAreReadNoFurther) {
    // All different: what is kept of each must fit into the buffers.
    std::vector<std::string> paths;
    for (unsigned number = 0; number < 3'000; ++number) {
        const std::string mark = std::to_string(number);
        paths.push_back(sparse(mark + ".txt", 1'000'000, firstBlock * 2, "#" + mark + "#"));
    }
    EXPECT_EQ(find(), PlainResult{});
    // First block twice, last block, the next, and the piece that tells it apart. One file, against
    // which the others were held, was read further.
    EXPECT_LE(std::count_if(paths.begin(), paths.end(),
                            [this](const std::string& path) {
                                return fileSystem_.bytesRead(path) > 5 * firstBlock;
                            }),
              1);
    EXPECT_GT(bench_.finder().bufferBytes(), 0U);
    EXPECT_LE(bench_.finder().bufferBytes(), 64U * 1024 * 1024);
}

TEST_F(Comparison, TenThousandEqualFilesUnderALimitOf64Descriptors) {
    fileSystem_.setDescriptorLimit(64);
    fileSystem_.refuseMoreDescriptorsThan(64 - 16);
    ComparisonFixture bench(fileSystem_);
    std::vector<std::string> paths;
    for (int number = 0; number < 10'000; ++number) {
        const std::string path = bench.folder().writeFile(std::to_string(number) + ".txt", "");
        std::filesystem::resize_file(path, 20'000);
        bench.addPath(path, 20'000);
        paths.push_back(path);
    }
    EXPECT_EQ(plainResultOf(*bench.find()), oneSet(paths));
    EXPECT_LE(fileSystem_.openAtMost(), 64U - 16U);
    for (const std::string& path : paths) {
        ASSERT_LE(fileSystem_.bytesRead(path), 20'000U + firstBlock);
    }
}

TEST_F(Comparison, FortyThousandEmptyFilesAreOneSet) {
    std::vector<std::string> paths;
    for (int number = 0; number < 40'000; ++number) {
        paths.push_back(bench_.add(std::to_string(number) + ".txt", "")->filePath());
    }
    EXPECT_EQ(find(), oneSet(paths));
    EXPECT_EQ(fileSystem_.bytesRead(), 0U);
}

TEST_F(Comparison, AShortageOfDescriptorsIsWaitedOut) {
    const std::string a = bench_.add("a.txt", "same")->filePath();
    const std::string b = bench_.add("b.txt", "same")->filePath();
    fileSystem_.failCall(FileCall::openFile, 1, EMFILE);
    fileSystem_.failCall(FileCall::openFile, 3, ENFILE);
    EXPECT_EQ(find(), oneSet({a, b}));
}

/// A class of equal files that is compared in one way or another.
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

/// What happens to the second of some equal files must cost the others nothing.
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

TEST_P(OneOfEqualFiles, IsGone) {
    std::filesystem::remove(victim_);
    expectTheOthers();
}

TEST_P(OneOfEqualFiles, VanishesJustBeforeItIsOpened) {
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

// Read whole; kept open; opened for each stretch; told apart by fingerprints first.
INSTANTIATE_TEST_SUITE_P(Ways, OneOfEqualFiles,
                         ::testing::Values(ClassOfFiles{100, 3}, ClassOfFiles{16'384, 3},
                                           ClassOfFiles{16'385, 3}, ClassOfFiles{400'000, 3},
                                           ClassOfFiles{9'000'000, 3}, ClassOfFiles{100, 40},
                                           ClassOfFiles{60'000, 40}, ClassOfFiles{100, 100},
                                           ClassOfFiles{60'000, 100}),
                         nameOf);

/// What changes when it has been read from already, but not to its end.
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

TEST_P(OneOfFilesInReading, Vanishes) {
    replaceAtFirstRead([] {});
    expectTheOthers();
}

TEST_P(OneOfFilesInReading, BecomesUnreadable) {
    fileSystem_.failCall(FileCall::readAt, 2, EACCES, victim_);
    expectTheOthers();
}

TEST_P(OneOfFilesInReading, HasNoAttributesWhenTheyAreAskedForAgain) {
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
        ComparisonFixture bench(fileSystem);
        std::vector<std::string> paths;
        for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
            paths.push_back(bench.add(name, noise(700'000, 3))->filePath());
        }
        fileSystem.failCall(FileCall::readAt, nth, EIO, paths[1]);
        EXPECT_EQ(plainResultOf(*bench.find()), oneSet({paths[0], paths[2]})) << nth;
    }
}

TEST_F(Comparison, TheFileThatTheOthersAreHeldAgainstMayFailToo) {
    std::vector<std::string> paths;
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        paths.push_back(bench_.add(name, noise(700'000, 3))->filePath());
    }
    fileSystem_.failCall(FileCall::readAt, 3, EIO, paths[0]);
    EXPECT_EQ(find(), oneSet({paths[1], paths[2]}));
}

TEST_F(Comparison, AFileThatIsWrittenToWhileItIsReadIsInNoSet) {
    std::vector<std::string> paths;
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        paths.push_back(bench_.add(name, noise(700'000, 3))->filePath());
    }
    fileSystem_.beforeCall(
        FileCall::readAt, 3,
        [&paths] { std::ofstream(paths[1], std::ios::binary | std::ios::app) << "more"; },
        paths[1]);
    EXPECT_EQ(find(), oneSet({paths[0], paths[2]}));
}

TEST_F(Comparison, AFileReplacedBetweenTwoOfItsReadsIsInNoSet) {
    // More than are kept open, so that each is opened again for each stretch.
    std::vector<std::string> paths;
    for (int number = 0; number < 40; ++number) {
        paths.push_back(bench_.add(std::to_string(number) + ".txt", noise(100'000, 3))->filePath());
    }
    const std::string replaced = paths[7];
    fileSystem_.beforeCall(
        FileCall::openFile, 3,
        [&replaced, this] {
            const std::string copy = bench_.folder().writeFile("copy", noise(100'000, 3));
            std::filesystem::rename(copy, replaced);
        },
        replaced);
    paths.erase(paths.begin() + 7);
    EXPECT_EQ(find(), oneSet(paths));
}

TEST_F(Comparison, HardLinksAreEqualFiles) {
    const std::string a = bench_.add("a.txt", "same")->filePath();
    const std::string b = bench_.folder().pathOf("b.txt");
    std::filesystem::create_hard_link(a, b);
    bench_.addPath(b, 4);
    EXPECT_EQ(find(), oneSet({a, b}));
}

/// One file on two ways, small and large.
class OneFileTwice : public Comparison, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(OneFileTwice, UnderTheSamePathIsNotItsOwnDuplicate) {
    const std::string a = bench_.add("a.txt", noise(GetParam(), 1))->filePath();
    bench_.addPath(a, GetParam());
    EXPECT_EQ(find(), PlainResult{});
}

TEST_P(OneFileTwice, WithTwoNamesIsEqualToItsOtherNameOnly) {
    const std::string a = bench_.add("a.txt", noise(GetParam(), 1))->filePath();
    const std::string b = bench_.folder().pathOf("b.txt");
    std::filesystem::create_hard_link(a, b);
    bench_.addPath(a, GetParam());
    bench_.addPath(b, GetParam());
    EXPECT_EQ(find(), oneSet({a, b}));
}

TEST_P(OneFileTwice, BehindAFolderThatBecameALinkIsNotItsOwnDuplicate) {
    const std::string a = bench_.add("one/a.txt", noise(GetParam(), 1))->filePath();
    bench_.folder().makeLink("two", bench_.folder().pathOf("one"));
    bench_.addPath(bench_.folder().pathOf("two/a.txt"), GetParam());
    EXPECT_EQ(find(), PlainResult{});
}

TEST_P(OneFileTwice, LeavesItsRealDuplicatesInTheSet) {
    const std::string a = bench_.add("a.txt", noise(GetParam(), 1))->filePath();
    bench_.addPath(a, GetParam());
    const std::string b = bench_.add("b.txt", noise(GetParam(), 1))->filePath();
    EXPECT_EQ(find(), oneSet({a, b}));
}

INSTANTIATE_TEST_SUITE_P(Sizes, OneFileTwice, ::testing::Values(5, 30'000, 9'000'000));

/// Classes of every way of comparing: what grows between its attributes and its reading, which
/// other files do not, is in no set.
class GrowingFile : public Comparison,
                    public ::testing::WithParamInterface<std::tuple<std::size_t, int>> {};

TEST_P(GrowingFile, IsInNoSet) {
    const auto& [size, count] = GetParam();
    std::vector<std::string> paths;
    for (int number = 0; number < count; ++number) {
        paths.push_back(bench_.add(std::to_string(number) + ".txt", noise(size, 3))->filePath());
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

TEST_F(Comparison, FilesThatSayTheyAreEmptyButAreNotAreInNoSet) {
    // Such as those of the kernel's tables: no size, made up while they are read.
    bench_.addPath("/proc/self/status", 0);
    bench_.addPath("/proc/self/limits", 0);
    EXPECT_EQ(find(), PlainResult{});
}

TEST_F(Comparison, ADeviceInTheListIsNotRead) {
    bench_.addPath("/dev/zero", 100);
    const std::string a = bench_.add("a.txt", noise(100, 1))->filePath();
    const std::string b = bench_.add("b.txt", noise(100, 1))->filePath();
    EXPECT_EQ(find(), oneSet({a, b}));
    EXPECT_EQ(fileSystem_.bytesRead("/dev/zero"), 0U);
}

TEST_F(Comparison, OneReaderAtATimeOnARotationalDevice) {
    fileSystem_.setRotational(true);
    ComparisonFixture bench(fileSystem_, {4, 8});
    for (int number = 0; number < 400; ++number) {
        bench.add(std::to_string(number) + ".txt", noise(number % 2 == 0 ? 3'000 : 90'000, 3));
    }
    EXPECT_EQ(bench.find()->totalFiles(), 398U);
    EXPECT_LE(fileSystem_.readersOfOneDeviceAtMost(), 1U);
}

/// Equal files that take long to compare: two huge ones, and very many.
class LongComparison : public Comparison, public ::testing::WithParamInterface<ClassOfFiles> {
 protected:
    void SetUp() override {
        for (std::size_t number = 0; number < GetParam().count; ++number) {
            sparse(std::to_string(number) + ".txt", GetParam().size);
        }
    }

    void begin() {
        comparison_ = std::thread([this] { result_ = find(); });
        ASSERT_TRUE(waitUntil([this] { return bench_.finder().bytesRead() > bytesInAll() / 200; }));
    }

    [[nodiscard]] static std::uint64_t bytesInAll() { return GetParam().size * GetParam().count; }

    void TearDown() override {
        bench_.control().setStop(true);
        bench_.control().setPause(false);
        if (comparison_.joinable()) {
            comparison_.join();
        }
    }

    void expectAStopToActAtOnce() {
        const auto asked = std::chrono::steady_clock::now();
        bench_.control().setStop(true);
        comparison_.join();
        EXPECT_LT(std::chrono::steady_clock::now() - asked, quickly);
        EXPECT_EQ(result_, PlainResult{});
    }

    std::thread comparison_;
    PlainResult result_;
};

TEST_P(LongComparison, IsStoppedAtOnceAndShowsNothingUnproven) {
    begin();
    expectAStopToActAtOnce();
}

TEST_P(LongComparison, IsStoppedAtOnceOnARotationalDevice) {
    fileSystem_.setRotational(true);
    begin();
    expectAStopToActAtOnce();
}

TEST_P(LongComparison, IsPausedAtOnce) {
    begin();
    const auto asked = std::chrono::steady_clock::now();
    bench_.control().setPause(true);
    // Nothing is read any more once the pieces in hand are done: look until two looks agree for a
    // good while.
    std::uint64_t before = 0;
    auto still = asked;
    while (std::chrono::steady_clock::now() - still < quickly / 4) {
        const std::uint64_t now = fileSystem_.bytesRead();
        if (now != before) {
            before = now;
            still = std::chrono::steady_clock::now();
        }
        ASSERT_LT(still - asked, quickly);
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
