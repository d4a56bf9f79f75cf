#include "platform/posix/small_file.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

namespace tarvin {
namespace {

TEST(SmallFile, IsReadWholeWithAllItsBytes) {
    const TemporaryFolder folder;
    const std::string content("a\0b\r\n\xff", 6);
    EXPECT_EQ(readSmallFile(folder.writeFile("file", content), 100), content);
}

TEST(SmallFile, MayBeEmpty) {
    const TemporaryFolder folder;
    EXPECT_EQ(readSmallFile(folder.writeFile("file", ""), 100), "");
}

TEST(SmallFile, MayBeAsLargeAsTheLimitAndNoLarger) {
    const TemporaryFolder folder;
    const std::string content(20'000, 'x');
    const std::string path = folder.writeFile("file", content);
    EXPECT_EQ(readSmallFile(path, 20'000), content);
    EXPECT_EQ(readSmallFile(path, 19'999), std::nullopt);
}

TEST(SmallFile, OfTheKernelIsReadDespiteSizeZero) {
    const auto content = readSmallFile("/proc/self/status", 1 << 20);
    ASSERT_TRUE(content);
    EXPECT_TRUE(content->starts_with("Name:"));
}

TEST(SmallFile, IsReadThroughALink) {
    const TemporaryFolder folder;
    folder.writeFile("file", "content");
    EXPECT_EQ(readSmallFile(folder.makeLink("link", "file"), 100), "content");
}

TEST(SmallFile, IsNulloptForAFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(readSmallFile(folder.pathOf("missing"), 100), std::nullopt);
    EXPECT_EQ(readSmallFile(folder.makeFolder("folder"), 100), std::nullopt);
    EXPECT_EQ(readSmallFile(folder.makeLink("broken", "nothing"), 100), std::nullopt);
}

TEST(SmallFile, DoesNotBlockOnAPipe) {
    const TemporaryFolder folder;
    const std::string pipe = folder.pathOf("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(readSmallFile(pipe, 100), std::nullopt);
}

}  // namespace
}  // namespace tarvin
