#include "cli/path_list.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {
namespace {

using namespace std::string_view_literals;

using ListedPaths = std::vector<std::string>;

TEST(PathList, HasAPathOnEachLine) {
    EXPECT_EQ(pathsIn("a\n/b c/d\n", '\n'), (ListedPaths{"a", "/b c/d"}));
    EXPECT_EQ(pathsIn("a\nb", '\n'), (ListedPaths{"a", "b"}));
    EXPECT_EQ(pathsIn("a\r\n", '\n'), ListedPaths{"a\r"});
}

TEST(PathList, EmptyLinesAreLeftOut) {
    EXPECT_EQ(pathsIn("\n\na\n\n", '\n'), ListedPaths{"a"});
    EXPECT_EQ(pathsIn("\n", '\n'), ListedPaths());
    EXPECT_EQ(pathsIn("", '\n'), ListedPaths());
}

TEST(PathList, NullTerminatedPathsMayHaveNewlines) {
    EXPECT_EQ(pathsIn("a\nb\0\0c\xff\0"sv, '\0'), (ListedPaths{"a\nb", "c\xff"}));
}

TEST(PathList, IsReadToItsEnd) {
    const TemporaryFolder folder;
    const std::string content(200'000, 'x');
    const auto read = contentOfList(folder.writeFile("list", content));
    ASSERT_TRUE(read);
    EXPECT_TRUE(*read == content);
}

TEST(PathList, ThatCannotBeReadIsAnError) {
    const TemporaryFolder folder;
    EXPECT_EQ(contentOfList(folder.pathOf("none")).error().code, ENOENT);
    EXPECT_EQ(contentOfList(folder.path()).error().code, EISDIR);
}

TEST(PathList, ItsPathsAreAddedToThoseGiven) {
    const TemporaryFolder folder;
    ScanOptions options;
    options.folders = {"a"};
    EXPECT_TRUE(addListedPaths(options));
    EXPECT_EQ(options.folders, ListedPaths{"a"});
    options.filesFrom = folder.writeFile("list", "b\nc\n");
    EXPECT_TRUE(addListedPaths(options));
    EXPECT_EQ(options.folders, (ListedPaths{"a", "b", "c"}));
}

TEST(PathList, WithNullCharactersInLinesIsRefused) {
    const TemporaryFolder folder;
    ScanOptions options;
    options.filesFrom = folder.writeFile("list", "b\0c\0"sv);
    EXPECT_FALSE(addListedPaths(options));
    EXPECT_TRUE(options.folders.empty());
    options.listIsNullTerminated = true;
    EXPECT_TRUE(addListedPaths(options));
    EXPECT_EQ(options.folders, (ListedPaths{"b", "c"}));
}

}  // namespace
}  // namespace tarvin
