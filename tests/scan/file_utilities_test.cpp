#include "scan/file_utilities.h"

#include "model/file_store.h"
#include "support/fake_platform.h"
#include "support/faulty_file_system.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

constexpr std::uint64_t threeMebibytes = 3'145'728;

/// A file with this recorded size.
std::shared_ptr<File> recorded(std::uint64_t size) {
    return FileStore::standalone("/recorded", size, std::nullopt, std::nullopt);
}

/// `size` bytes whose period is not a power of two.
std::string pattern(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t at = 0; at < size; ++at) {
        bytes[at] = static_cast<char>(at * 7 % 251);
    }
    return bytes;
}

class FileUtilities : public testing::Test {
 protected:
    [[nodiscard]] bool contentsEqual(const std::string& path, const std::string& otherPath) {
        const bool result = contentsEqualAtPath(fileSystem_, path, otherPath);
        EXPECT_EQ(contentsEqualAtPath(fileSystem_, otherPath, path), result);
        EXPECT_EQ(fileSystem_.openNow(), 0u);
        return result;
    }

    [[nodiscard]] bool dataEquals(const std::string& path, const std::string& otherPath,
                                  std::uint64_t recordedSize) {
        const bool result = dataEqualsAtPath(fileSystem_, path, otherPath, *recorded(recordedSize));
        EXPECT_EQ(fileSystem_.openNow(), 0u);
        return result;
    }

    [[nodiscard]] std::optional<std::string> md5(const std::string& path) {
        auto result = md5OfFile(fileSystem_, path);
        EXPECT_EQ(fileSystem_.openNow(), 0u);
        return result;
    }

    TemporaryFolder folder_;
    FaultyFileSystem fileSystem_;
};

using ContentsEqualAtPath = FileUtilities;
using DataEqualsAtPath = FileUtilities;
using Md5OfFile = FileUtilities;

TEST_F(ContentsEqualAtPath, IsTrueForEqualBytes) {
    for (const std::size_t size : {0u, 1u, 131'071u, 131'072u, 131'073u, 400'000u}) {
        const auto one = folder_.writeFile("one", pattern(size));
        const auto other = folder_.writeFile("other", pattern(size));
        EXPECT_TRUE(contentsEqual(one, other)) << size;
    }
}

TEST_F(ContentsEqualAtPath, IsFalseForOneByteThatDiffers) {
    const std::string bytes = pattern(400'000);
    const auto one = folder_.writeFile("one", bytes);
    for (const std::size_t at : {0u, 1u, 131'071u, 131'072u, 262'143u, 399'999u}) {
        std::string changed = bytes;
        changed[at] = static_cast<char>(changed[at] + 1);
        EXPECT_FALSE(contentsEqual(one, folder_.writeFile("other", changed))) << at;
    }
}

TEST_F(ContentsEqualAtPath, IsFalseIfOneEndsBeforeTheOther) {
    const std::string bytes = pattern(262'144);
    const auto one = folder_.writeFile("one", bytes);
    for (const std::size_t size : {0u, 1u, 131'072u, 262'143u}) {
        EXPECT_FALSE(contentsEqual(one, folder_.writeFile("other", bytes.substr(0, size)))) << size;
    }
}

TEST_F(ContentsEqualAtPath, IsTrueForAFileAndItself) {
    const auto path = folder_.writeFile("one", "bytes");
    EXPECT_TRUE(contentsEqual(path, path));
}

TEST_F(ContentsEqualAtPath, IsFalseForFilesThatCannotBeOpened) {
    const auto path = folder_.writeFile("one", "");
    EXPECT_FALSE(contentsEqual(path, folder_.pathOf("missing")));
    EXPECT_FALSE(contentsEqual(folder_.pathOf("missing"), folder_.pathOf("missing")));
}

TEST_F(ContentsEqualAtPath, IsFalseUnlessBothAreRegularFiles) {
    const auto path = folder_.writeFile("one", "");
    const auto inside = folder_.makeFolder("folder");
    const auto link = folder_.makeLink("link", "one");
    const auto pipe = folder_.pathOf("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& odd : {inside, link, pipe, std::string("/dev/null")}) {
        EXPECT_FALSE(contentsEqual(path, odd)) << odd;
        EXPECT_FALSE(contentsEqual(odd, odd)) << odd;
    }
}

TEST_F(ContentsEqualAtPath, IsFalseIfReadingFails) {
    const auto one = folder_.writeFile("one", pattern(300'000));
    const auto other = folder_.writeFile("other", pattern(300'000));
    fileSystem_.failCall(FileCall::readAt, 2, EIO, other);
    EXPECT_FALSE(contentsEqualAtPath(fileSystem_, one, other));
    fileSystem_.clearFaults();
    fileSystem_.failCall(FileCall::readAt, 2, EIO, one);
    EXPECT_FALSE(contentsEqualAtPath(fileSystem_, one, other));
    fileSystem_.clearFaults();
    EXPECT_TRUE(contentsEqualAtPath(fileSystem_, one, other));
}

TEST_F(ContentsEqualAtPath, IsFalseIfTheAttributesCannotBeRead) {
    const auto one = folder_.writeFile("one", "bytes");
    fileSystem_.failCall(FileCall::attributesOf, FaultyFileSystem::each, EIO);
    EXPECT_FALSE(contentsEqual(one, one));
}

TEST_F(ContentsEqualAtPath, ReadsFilesOfReportedSizeZero) {
    // Files of pseudo file systems report size 0 and have content.
    const auto copy = folder_.writeFile("copy", "");
    EXPECT_FALSE(contentsEqual("/proc/version", copy));
    EXPECT_TRUE(contentsEqual("/proc/version", "/proc/version"));
}

TEST_F(ContentsEqualAtPath, StopsAtTheFirstDifference) {
    const std::string bytes = pattern(1'000'000);
    const auto one = folder_.writeFile("one", "x" + bytes);
    const auto other = folder_.writeFile("other", "y" + bytes);
    EXPECT_FALSE(contentsEqualAtPath(fileSystem_, one, other));
    EXPECT_LT(fileSystem_.bytesRead(one), 200'000u);
    EXPECT_LT(fileSystem_.bytesRead(other), 200'000u);
}

TEST_F(DataEqualsAtPath, ComparesSmallFilesInFull) {
    const std::string bytes = pattern(threeMebibytes - 1);
    std::string changed = bytes;
    changed[1'000'000] = '\xff';
    const auto one = folder_.writeFile("one", bytes);
    const auto same = folder_.writeFile("same", bytes);
    const auto other = folder_.writeFile("other", changed);
    EXPECT_TRUE(dataEquals(one, same, threeMebibytes - 1));
    EXPECT_FALSE(dataEquals(one, other, threeMebibytes - 1));
}

TEST_F(DataEqualsAtPath, ComparesBothEndsOfLargeFiles) {
    const std::string bytes = pattern(7'000'000);
    const auto one = folder_.writeFile("one", bytes);
    EXPECT_TRUE(dataEquals(one, folder_.writeFile("other", bytes), 7'000'000));
    for (const std::size_t at : {0u, 3'145'727u, 3'854'272u, 6'999'999u}) {
        std::string changed = bytes;
        changed[at] = '\xff';
        EXPECT_FALSE(dataEquals(one, folder_.writeFile("other", changed), 7'000'000)) << at;
    }
}

TEST_F(DataEqualsAtPath, IgnoresTheMiddleOfLargeFiles) {
    const std::string bytes = pattern(7'000'000);
    const auto one = folder_.writeFile("one", bytes);
    for (const std::size_t at : {3'145'728u, 3'500'000u, 3'854'271u}) {
        std::string changed = bytes;
        changed[at] = '\xff';
        EXPECT_TRUE(dataEquals(one, folder_.writeFile("other", changed), 7'000'000)) << at;
    }
}

TEST_F(DataEqualsAtPath, FilesOfAtLeastThreeMebibytesAreLarge) {
    std::string bytes = pattern(7'000'000);
    const auto one = folder_.writeFile("one", bytes);
    bytes[3'500'000] = '\xff';
    const auto other = folder_.writeFile("other", bytes);
    EXPECT_TRUE(dataEquals(one, other, threeMebibytes));
    EXPECT_FALSE(dataEquals(one, other, threeMebibytes - 1));
}

TEST_F(DataEqualsAtPath, TailBeginsAtTheEndOfTheFirstFile) {
    const std::string bytes = pattern(7'000'000);
    const auto one = folder_.writeFile("one", bytes);
    const auto longer = folder_.writeFile("longer", bytes + "more");
    // What the other file has after that offset is ignored. The other way round it belongs to the
    // first file's tail, and the shorter file ends too early.
    EXPECT_TRUE(dataEquals(one, longer, 7'000'000));
    EXPECT_FALSE(dataEquals(longer, one, 7'000'000));
}

TEST_F(DataEqualsAtPath, ComparesLargeFilesOfExactlyOneChunk) {
    const std::string bytes = pattern(threeMebibytes);
    const auto one = folder_.writeFile("one", bytes);
    EXPECT_TRUE(dataEquals(one, folder_.writeFile("other", bytes), threeMebibytes));
    std::string changed = bytes;
    changed.back() = '\xff';
    EXPECT_FALSE(dataEquals(one, folder_.writeFile("other", changed), threeMebibytes));
}

TEST_F(DataEqualsAtPath, ComparesFilesThatHaveShrunkSinceTheyWereRecorded) {
    const auto one = folder_.writeFile("one", "small");
    EXPECT_TRUE(dataEquals(one, folder_.writeFile("other", "small"), threeMebibytes));
    EXPECT_FALSE(dataEquals(one, folder_.writeFile("other", "other"), threeMebibytes));
    EXPECT_FALSE(dataEquals(one, folder_.writeFile("other", "smaller"), threeMebibytes));
    EXPECT_FALSE(dataEquals(one, folder_.writeFile("other", ""), threeMebibytes));
}

TEST_F(DataEqualsAtPath, IsFalseForFilesThatCannotBeOpened) {
    const auto one = folder_.writeFile("one", pattern(7'000'000));
    EXPECT_FALSE(dataEquals(one, folder_.pathOf("missing"), 7'000'000));
    EXPECT_FALSE(dataEquals(folder_.pathOf("missing"), one, 7'000'000));
    EXPECT_FALSE(dataEquals(one, folder_.makeFolder("folder"), 7'000'000));
}

TEST_F(DataEqualsAtPath, IsFalseIfReadingFailsAtEitherEnd) {
    const auto one = folder_.writeFile("one", pattern(7'000'000));
    const auto other = folder_.writeFile("other", pattern(7'000'000));
    ASSERT_TRUE(dataEquals(one, other, 7'000'000));
    const std::uint64_t reads = fileSystem_.calls(FileCall::readAt) / 2;
    for (const std::string& failing : {one, other}) {
        for (const std::uint64_t nth : {std::uint64_t{1}, reads / 2, reads / 2 + 1, reads}) {
            fileSystem_.clearFaults();
            fileSystem_.failCall(FileCall::readAt, nth, EIO, failing);
            EXPECT_FALSE(dataEquals(one, other, 7'000'000)) << failing << ", read " << nth;
        }
    }
}

TEST_F(Md5OfFile, IsTheDigestOfTheWholeFile) {
    EXPECT_EQ(md5(folder_.writeFile("empty", "")), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(md5(folder_.writeFile("abc", "abc")), "900150983cd24fb0d6963f7d28e17f72");
}

TEST_F(Md5OfFile, DoesNotDependOnChunkBoundaries) {
    EXPECT_EQ(md5(folder_.writeFile("less", std::string(threeMebibytes - 1, '\0'))),
              "a5b1d6a41d1eb639531f6b04231118f4");
    EXPECT_EQ(md5(folder_.writeFile("one", std::string(threeMebibytes, '\0'))),
              "d1dd210d6b1312cb342b56d02bd5e651");
    EXPECT_EQ(md5(folder_.writeFile("more", std::string(threeMebibytes + 1, '\0'))),
              "c5dc5cd5b301f69bc6a4667dc9b782e4");
    EXPECT_EQ(md5(folder_.writeFile("two", std::string(2 * threeMebibytes, '\0'))),
              "da6a0d097e307ac52ed9b4ad551801fc");
}

TEST_F(Md5OfFile, IsNulloptForFilesThatCannotBeRead) {
    EXPECT_EQ(md5(folder_.pathOf("missing")), std::nullopt);
    EXPECT_EQ(md5(folder_.makeFolder("folder")), std::nullopt);
    EXPECT_EQ(md5("/dev/null"), std::nullopt);
    const auto path = folder_.writeFile("file", pattern(4'000'000));
    EXPECT_EQ(md5(folder_.makeLink("link", "file")), std::nullopt);
    fileSystem_.failCall(FileCall::readAt, 2, EIO, path);
    EXPECT_EQ(md5(path), std::nullopt);
    fileSystem_.clearFaults();
    EXPECT_NE(md5(path), std::nullopt);
}

TEST(CheckNilDate, IsTheDateItself) {
    FakeClock clock;
    EXPECT_EQ(checkNilDate(Timestamp(5s), clock), Timestamp(5s));
}

TEST(CheckNilDate, IsTheCurrentTimeForNullopt) {
    FakeClock clock;
    clock.set(Timestamp(1'000s));
    EXPECT_EQ(checkNilDate(std::nullopt, clock), Timestamp(1'000s));
    clock.advance(1ns);
    EXPECT_EQ(checkNilDate(std::nullopt, clock), Timestamp(1'000s + 1ns));
}

}  // namespace
}  // namespace tarvin
