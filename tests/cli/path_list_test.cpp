#include "cli/path_list.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using namespace std::string_view_literals;

using ListedPaths = std::vector<std::string>;

/// The paths of a list with this content, or why it is refused.
class PathListTest : public ::testing::Test {
 protected:
    ListedPaths pathsIn(std::string_view content, char end, const PathListLimits& limits = {}) {
        auto read = readPathList(folder_.writeFile("list", content), end, limits);
        if (!read) {
            return {read.error().verb, read.error().reason};
        }
        return std::move(*read);
    }

    TemporaryFolder folder_;
};

TEST_F(PathListTest, HasAPathOnEachLine) {
    EXPECT_EQ(pathsIn("a\n/b c/d\n", '\n'), (ListedPaths{"a", "/b c/d"}));
    EXPECT_EQ(pathsIn("a\nb", '\n'), (ListedPaths{"a", "b"}));
    EXPECT_EQ(pathsIn("a\r\n", '\n'), ListedPaths{"a\r"});
}

TEST_F(PathListTest, EmptyLinesAreLeftOut) {
    EXPECT_EQ(pathsIn("\n\na\n\n", '\n'), ListedPaths{"a"});
    EXPECT_EQ(pathsIn("\n", '\n'), ListedPaths());
    EXPECT_EQ(pathsIn("", '\n'), ListedPaths());
}

TEST_F(PathListTest, NullTerminatedPathsMayHaveNewlines) {
    EXPECT_EQ(pathsIn("a\nb\0\0c\xff\0"sv, '\0'), (ListedPaths{"a\nb", "c\xff"}));
}

TEST_F(PathListTest, IsReadToItsEnd) {
    // The second path begins in one chunk of 64 KiB and ends in another.
    const std::string one(60'000, 'x');
    const std::string two(60'000, 'y');
    const ListedPaths expected{one, two, "z"};
    EXPECT_TRUE(pathsIn(one + "\n" + two + "\nz", '\n') == expected);
}

TEST_F(PathListTest, ThatCannotBeReadIsAnError) {
    EXPECT_EQ(readPathList(folder_.pathOf("none"), '\n').error().reason,
              "No such file or directory");
    EXPECT_EQ(readPathList(folder_.path(), '\n').error().reason, "Is a directory");
    EXPECT_STREQ(readPathList(folder_.path(), '\n').error().verb, "read");
}

TEST_F(PathListTest, LimitsAreThemselvesAllowed) {
    const PathListLimits limits{.pathBytes = 4, .listBytes = 12, .paths = 3};
    EXPECT_EQ(pathsIn("abcd\ne\nfghi\n", '\n', limits), (ListedPaths{"abcd", "e", "fghi"}));
    EXPECT_EQ(pathsIn("abcd\nefghi\n", '\n', limits),
              (ListedPaths{"use", "a path in it has more than 4 bytes"}));
    EXPECT_EQ(pathsIn("abcde", '\n', limits),
              (ListedPaths{"use", "a path in it has more than 4 bytes"}));
    EXPECT_EQ(pathsIn("a\nb\nc\nd", '\n', limits),
              (ListedPaths{"use", "it has more than 3 paths"}));
    EXPECT_EQ(pathsIn("a\nb\nc\nd\n", '\n', limits),
              (ListedPaths{"use", "it has more than 3 paths"}));
    EXPECT_EQ(pathsIn("\n\n\n\n\n\n\n\n\n\n\n\n\n", '\n', limits),
              (ListedPaths{"use", "it has more than 12 bytes"}));
}

TEST(PathList, WithoutAnEndIsRefused) {
    EXPECT_EQ(readPathList("/dev/zero", '\n').error().reason, "it has null characters; use --null");
    EXPECT_EQ(readPathList("/dev/zero", '\0', {.listBytes = 1'000'000}).error().reason,
              "it has more than 1000000 bytes");
    EXPECT_STREQ(readPathList("/dev/zero", '\0', {.listBytes = 1'000'000}).error().verb, "use");
    EXPECT_EQ(PathListLimits().listBytes, 1'073'741'824U);
}

TEST(PathList, TheirPathsAreAddedToThoseGivenInOrder) {
    const TemporaryFolder folder;
    ScanOptions options;
    options.folders = {"a"};
    EXPECT_TRUE(addListedPaths(options));
    EXPECT_EQ(options.folders, ListedPaths{"a"});
    options.filesFrom = {folder.writeFile("list", "b\nc\n"), folder.writeFile("more", "d\nb\n")};
    EXPECT_TRUE(addListedPaths(options));
    EXPECT_EQ(options.folders, (ListedPaths{"a", "b", "c", "d", "b"}));
}

TEST(PathList, WithNullCharactersInLinesIsRefused) {
    const TemporaryFolder folder;
    ScanOptions options;
    options.filesFrom = {folder.writeFile("list", "b\0c\0"sv)};
    EXPECT_FALSE(addListedPaths(options));
    EXPECT_TRUE(options.folders.empty());
    options.listIsNullTerminated = true;
    EXPECT_TRUE(addListedPaths(options));
    EXPECT_EQ(options.folders, (ListedPaths{"b", "c"}));
}

}  // namespace
}  // namespace tarvin
