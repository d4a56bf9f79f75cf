#include "scan/exception_filter.h"

#include "model/file_store.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

class ExceptionFilterTest : public testing::Test {
 protected:
    const Directory* folder(std::string_view path) { return store_->addRoot(path); }

    std::shared_ptr<FileStore> store_ = FileStore::create();
};

TEST_F(ExceptionFilterTest, IsEmptyByDefault) {
    const ExceptionFilter filter;
    EXPECT_FALSE(filter.contains(*folder("/home/ann"), "a.jpg"));
    EXPECT_FALSE(filter.contains(*folder("/"), ""));
}

TEST_F(ExceptionFilterTest, MatchesOnlyListedPaths) {
    const ExceptionFilter filter({"/home/ann/a.jpg", "/home/ann/pictures/b.jpg", "/c.jpg"});
    EXPECT_TRUE(filter.contains(*folder("/home/ann"), "a.jpg"));
    EXPECT_TRUE(filter.contains(*folder("/home/ann/pictures"), "b.jpg"));
    EXPECT_TRUE(filter.contains(*folder("/"), "c.jpg"));
    EXPECT_FALSE(filter.contains(*folder("/home/ann"), "b.jpg"));
    EXPECT_FALSE(filter.contains(*folder("/home/ann/pictures"), "a.jpg"));
    EXPECT_FALSE(filter.contains(*folder("/home/ann/pictures"), "c.jpg"));
}

TEST_F(ExceptionFilterTest, MatchesFilesInNestedFolders) {
    const Directory* const inner = store_->addDirectory(folder("/home/ann"), "pictures");
    const ExceptionFilter filter({"/home/ann/pictures/b.jpg"});
    EXPECT_TRUE(filter.contains(*inner, "b.jpg"));
    EXPECT_FALSE(filter.contains(*inner, "a.jpg"));
}

TEST_F(ExceptionFilterTest, IsCaseSensitive) {
    const ExceptionFilter filter({"/home/ann/a.jpg"});
    EXPECT_FALSE(filter.contains(*folder("/home/ann"), "A.jpg"));
    EXPECT_FALSE(filter.contains(*folder("/home/Ann"), "a.jpg"));
}

TEST_F(ExceptionFilterTest, DoesNotMatchFilesInAListedFolder) {
    const ExceptionFilter filter({"/home/ann", "/home/ann/pictures/"});
    EXPECT_FALSE(filter.contains(*folder("/home/ann"), "a.jpg"));
    EXPECT_FALSE(filter.contains(*folder("/home/ann/pictures"), "a.jpg"));
    EXPECT_FALSE(filter.contains(*folder("/home/ann"), "pictures"));
}

TEST_F(ExceptionFilterTest, DoesNotMatchPatterns) {
    const ExceptionFilter filter({"/home/ann/*.jpg", "/home/ann/?.jpg", "a.jpg"});
    EXPECT_FALSE(filter.contains(*folder("/home/ann"), "a.jpg"));
    EXPECT_TRUE(filter.contains(*folder("/home/ann"), "*.jpg"));
}

TEST_F(ExceptionFilterTest, ComparesPathsByteForByte) {
    // The same letter composed and decomposed: different bytes are different files.
    const ExceptionFilter filter({"/home/\xff\n/\xc3\xa4.jpg"});
    EXPECT_TRUE(filter.contains(*folder("/home/\xff\n"), "\xc3\xa4.jpg"));
    EXPECT_FALSE(filter.contains(*folder("/home/\xff\n"), "a\xcc\x88.jpg"));
}

TEST_F(ExceptionFilterTest, AcceptsAPathTwice) {
    const ExceptionFilter filter({"/a.jpg", "/a.jpg"});
    EXPECT_TRUE(filter.contains(*folder("/"), "a.jpg"));
}

TEST_F(ExceptionFilterTest, DistinguishesFilesOfOneName) {
    const auto album = [](int number) { return std::string("/").append(std::to_string(number)); };
    std::vector<std::string> paths;
    for (int number = 0; number < 1000; number += 2) {
        paths.push_back(album(number).append("/cover.jpg"));
    }
    const ExceptionFilter filter(paths);
    for (int number = 0; number < 1000; ++number) {
        EXPECT_EQ(filter.contains(*folder(album(number)), "cover.jpg"), number % 2 == 0);
    }
}

TEST_F(ExceptionFilterTest, KeepsItsPathsWhenMoved) {
    // Names short enough for the small-string optimisation.
    ExceptionFilter first({"/a.jpg", "/b/c.jpg"});
    ExceptionFilter second(std::move(first));
    ExceptionFilter third;
    third = std::move(second);
    EXPECT_TRUE(third.contains(*folder("/"), "a.jpg"));
    EXPECT_TRUE(third.contains(*folder("/b"), "c.jpg"));
    EXPECT_FALSE(third.contains(*folder("/b"), "a.jpg"));
}

TEST_F(ExceptionFilterTest, IsNotCopyable) {
    // It holds views into its own strings.
    EXPECT_FALSE(std::is_copy_constructible_v<ExceptionFilter>);
    EXPECT_FALSE(std::is_copy_assignable_v<ExceptionFilter>);
}

}  // namespace
}  // namespace tarvin
