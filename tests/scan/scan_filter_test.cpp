#include "scan/scan_filter.h"

#include "model/file_store.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <string_view>

namespace tarvin {
namespace {

/// Why the pattern is invalid; "" if it is valid.
std::string errorOf(std::string_view pattern) {
    const auto parsed = ExcludePattern::parse(pattern);
    return parsed ? "" : parsed.error();
}

/// Whether a filter with this pattern excludes a path of a walk that began at "/home/ada/photos".
bool excludes(std::string_view pattern, std::string_view path,
              EntryType type = EntryType::regular) {
    auto parsed = ExcludePattern::parse(pattern);
    EXPECT_TRUE(parsed) << pattern;
    ScanFilter filter;
    filter.excluded.push_back(*parsed);
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory* folder = store->addRoot("/home/ada/photos");
    for (std::size_t slash = path.find('/'); slash != std::string_view::npos;
         slash = path.find('/')) {
        folder = store->addDirectory(folder, path.substr(0, slash));
        path.remove_prefix(slash + 1);
    }
    return filter.excludes(*folder, path, type);
}

TEST(ExcludePattern, WithoutASlashMatchesANameAtAnyDepth) {
    EXPECT_TRUE(excludes("*.tmp", "a.tmp"));
    EXPECT_TRUE(excludes("*.tmp", "2024/may/a.tmp"));
    EXPECT_TRUE(excludes("cache", "2024/cache", EntryType::directory));
    EXPECT_TRUE(excludes("cache", "2024/cache", EntryType::regular));
    EXPECT_FALSE(excludes("*.tmp", "a.tmp.jpg"));
    EXPECT_FALSE(excludes("may", "may/a.jpg"));
    EXPECT_TRUE(excludes("**", "a.jpg"));
}

TEST(ExcludePattern, WithASlashMatchesThePathFromTheLocation) {
    EXPECT_TRUE(excludes("raw/*.tif", "raw/a.tif"));
    EXPECT_FALSE(excludes("raw/*.tif", "2024/raw/a.tif"));
    EXPECT_FALSE(excludes("raw/*.tif", "raw/2024/a.tif"));
    EXPECT_FALSE(excludes("raw/*.tif", "a.tif"));
    EXPECT_TRUE(excludes("./raw", "raw", EntryType::directory));
    EXPECT_FALSE(excludes("./raw", "2024/raw", EntryType::directory));
    EXPECT_TRUE(excludes("a//./b", "a/b"));
    EXPECT_FALSE(excludes("photos/raw", "raw"));
}

TEST(ExcludePattern, WithASlashInFrontMatchesTheAbsolutePath) {
    EXPECT_TRUE(excludes("/home/ada/photos/raw", "raw"));
    EXPECT_TRUE(excludes("/home/*/photos/*/a.jpg", "raw/a.jpg"));
    EXPECT_FALSE(excludes("/raw", "raw"));
    EXPECT_TRUE(excludes("/**/raw", "2024/raw"));
}

TEST(ExcludePattern, TwoStarsStandForAnyNumberOfFolders) {
    EXPECT_TRUE(excludes("a/**/b.jpg", "a/b.jpg"));
    EXPECT_TRUE(excludes("a/**/b.jpg", "a/x/y/b.jpg"));
    EXPECT_FALSE(excludes("a/**/b.jpg", "x/a/b.jpg"));
    EXPECT_TRUE(excludes("**/raw/*.tif", "raw/a.tif"));
    EXPECT_TRUE(excludes("**/raw/*.tif", "x/y/raw/a.tif"));
    EXPECT_FALSE(excludes("**/raw/*.tif", "x/raw/y/a.tif"));
    EXPECT_TRUE(excludes("a/**/x/**/b", "a/x/x/y/b"));
    EXPECT_FALSE(excludes("a/**/x/**/b", "a/y/b"));
}

TEST(ExcludePattern, TwoStarsAtTheEndStandForEverythingInside) {
    EXPECT_TRUE(excludes("a/**", "a/b"));
    EXPECT_TRUE(excludes("a/**", "a/b/c"));
    EXPECT_FALSE(excludes("a/**", "a"));
    EXPECT_FALSE(excludes("a/**", "b/a"));
}

TEST(ExcludePattern, TwoStarsInsideAComponentStayInIt) {
    EXPECT_TRUE(excludes("a**z/b", "abcz/b"));
    EXPECT_FALSE(excludes("a**z/b", "a/z/b"));
}

TEST(ExcludePattern, WithASlashAtTheEndMatchesFoldersOnly) {
    EXPECT_TRUE(excludes("cache/", "x/cache", EntryType::directory));
    EXPECT_FALSE(excludes("cache/", "x/cache", EntryType::regular));
    EXPECT_FALSE(excludes("cache/", "x/cache", EntryType::unknown));
    EXPECT_TRUE(excludes("./cache/", "cache", EntryType::directory));
    EXPECT_FALSE(excludes("./cache/", "x/cache", EntryType::directory));
    EXPECT_TRUE(excludes("x/cache//", "x/cache", EntryType::directory));
}

TEST(ExcludePattern, ThatIsInvalidHasAReason) {
    EXPECT_EQ(errorOf(""), "empty pattern");
    EXPECT_EQ(errorOf("/"), "matches no name");
    EXPECT_EQ(errorOf("./"), "matches no name");
    EXPECT_EQ(errorOf("a/../b"), "'..' matches no name");
    EXPECT_EQ(errorOf("[a"), "'[' without ']'");
    EXPECT_EQ(errorOf("a/[b/c]"), "'[' without ']'");
    EXPECT_EQ(errorOf("a\\"), "nothing after the last backslash");
    EXPECT_EQ(errorOf("a\\/b"), "nothing after the last backslash");
    EXPECT_EQ(errorOf("a/[z-a]"), "the first character of a range comes after the last");
}

TEST(ExcludePattern, WithManyTwoStarsTakesNoLongTime) {
    std::string pattern;
    std::string path;
    for (int level = 0; level < 200; ++level) {
        pattern += "**/a/";
        path += "a/a/";
    }
    EXPECT_FALSE(excludes(pattern + "b/c", path + "c"));
}

TEST(ScanFilter, AsConstructedSkipsNothing) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const ScanFilter filter;
    EXPECT_FALSE(filter.skips(*store->addRoot("/a"), ".hidden", EntryType::directory));
    EXPECT_TRUE(filter.takesSize(0));
    EXPECT_TRUE(filter.takesSize(std::numeric_limits<std::uint64_t>::max()));
    EXPECT_FALSE(filter.oneFileSystem);
}

TEST(ScanFilter, SkipsHiddenEntriesIfConfigured) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory& folder = *store->addRoot("/a");
    ScanFilter filter;
    filter.skipHidden = true;
    EXPECT_TRUE(filter.skips(folder, ".git", EntryType::directory));
    EXPECT_TRUE(filter.skips(folder, ".a.jpg", EntryType::regular));
    EXPECT_FALSE(filter.skips(folder, "a.jpg", EntryType::regular));
    EXPECT_FALSE(filter.excludes(folder, ".a.jpg", EntryType::regular));
}

TEST(ScanFilter, BothLimitsOfTheSizeAreTaken) {
    ScanFilter filter;
    filter.minSize = 10;
    filter.maxSize = 20;
    EXPECT_FALSE(filter.takesSize(9));
    EXPECT_TRUE(filter.takesSize(10));
    EXPECT_TRUE(filter.takesSize(20));
    EXPECT_FALSE(filter.takesSize(21));
}

}  // namespace
}  // namespace tarvin
