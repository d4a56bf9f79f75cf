#include "scan/scan_result.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

std::shared_ptr<Modal> listWith(const std::string& extension, std::uint64_t files,
                                std::uint64_t bytes) {
    auto list = std::make_shared<Modal>();
    list->addExtension(std::make_shared<Extensions>(extension));
    list->setTotalFiles(files);
    list->setTotalFilesSize(bytes);
    return list;
}

std::vector<std::string> extensionsOf(const Modal& list) {
    std::vector<std::string> names;
    for (const std::shared_ptr<Extensions>& extension : list.extensions()) {
        names.push_back(extension->name());
    }
    return names;
}

TEST(ScanResult, JoinsTheCategoriesInTheOrderOfTheTabs) {
    CategoryResults categories;
    categories[static_cast<std::size_t>(Category::other)] = listWith("zip", 1, 10);
    categories[static_cast<std::size_t>(Category::documents)] = listWith("txt", 2, 200);
    categories[static_cast<std::size_t>(Category::audio)] = listWith("mp3", 3, 3'000);
    categories[static_cast<std::size_t>(Category::video)] = listWith("mp4", 4, 40'000);
    categories[static_cast<std::size_t>(Category::image)] = listWith("png", 5, 500'000);
    const std::shared_ptr<Modal> joined = joinCategories(categories);
    EXPECT_EQ(extensionsOf(*joined), (std::vector<std::string>{"png", "mp4", "mp3", "txt", "zip"}));
    EXPECT_EQ(joined->totalFiles(), 15U);
    EXPECT_EQ(joined->totalFilesSize(), 543'210U);
}

TEST(ScanResult, JoinedListSharesTheExtensions) {
    CategoryResults categories;
    categories[static_cast<std::size_t>(Category::image)] = listWith("png", 1, 10);
    ScanResult result;
    result.categories = categories;
    const std::shared_ptr<Modal> joined = joinCategories(categories);
    EXPECT_EQ(joined->extensions().front(), result.imageModal()->extensions().front());
}

TEST(ScanResult, JoinSkipsCategoriesWithoutAList) {
    CategoryResults categories;
    categories[static_cast<std::size_t>(Category::audio)] = listWith("mp3", 3, 30);
    const std::shared_ptr<Modal> joined = joinCategories(categories);
    EXPECT_EQ(extensionsOf(*joined), (std::vector<std::string>{"mp3"}));
    EXPECT_EQ(joined->totalFiles(), 3U);
    EXPECT_EQ(joined->totalFilesSize(), 30U);
}

TEST(ScanResult, JoinOfNoListsIsEmpty) {
    const std::shared_ptr<Modal> joined = joinCategories({});
    ASSERT_NE(joined, nullptr);
    EXPECT_EQ(joined->extensionCount(), 0U);
    EXPECT_EQ(joined->totalFiles(), 0U);
}

}  // namespace
}  // namespace tarvin
