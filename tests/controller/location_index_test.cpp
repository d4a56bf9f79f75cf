#include "controller/location_index.h"

#include "scan/category.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace tarvin {
namespace {

LocationIndex indexOf(const std::vector<std::string>& names) {
    LocationIndex index;
    for (const std::string& name : names) {
        index.add(name);
    }
    return index;
}

TEST(LocationIndex, CoversNothingAtFirst) {
    EXPECT_FALSE(LocationIndex().covers("/Users/x"));
    EXPECT_FALSE(LocationIndex().covers(""));
}

TEST(LocationIndex, CoversItsNames) {
    const LocationIndex index = indexOf({"/Users/x", "/Users/x/a.png"});
    EXPECT_TRUE(index.covers("/Users/x"));
    EXPECT_TRUE(index.covers("/Users/x/a.png"));
}

TEST(LocationIndex, CoversWhatIsBelowAName) {
    const LocationIndex index = indexOf({"/Users/x"});
    EXPECT_TRUE(index.covers("/Users/x/y"));
    EXPECT_TRUE(index.covers("/Users/x/y/z/a.png"));
    EXPECT_TRUE(index.covers("/Users/x/"));
}

TEST(LocationIndex, DoesNotCoverWhatIsBesideOrAboveAName) {
    const LocationIndex index = indexOf({"/Users/x"});
    EXPECT_FALSE(index.covers("/Users/xy"));
    EXPECT_FALSE(index.covers("/Users"));
    EXPECT_FALSE(index.covers("/users/x/y"));
    EXPECT_FALSE(index.covers("Users/x/y"));
}

TEST(LocationIndex, DoesNotCoverWhatIsBelowANameWithAnExtension) {
    const LocationIndex index = indexOf({"/Users/x.y", "/Users/photos.old"});
    EXPECT_TRUE(index.covers("/Users/x.y"));
    EXPECT_FALSE(index.covers("/Users/x.y/z"));
    EXPECT_FALSE(index.covers("/Users/photos.old/a.png"));
}

TEST(LocationIndex, CoversWhatIsBelowANameWhoseDotIsNoExtension) {
    const LocationIndex index = indexOf({"/Users/.hidden", "/Users/a.b/c"});
    EXPECT_TRUE(index.covers("/Users/.hidden/z"));
    EXPECT_TRUE(index.covers("/Users/a.b/c/z"));
}

TEST(LocationIndex, CoversNothingBelowTheRootFolder) {
    // Paths that begin with "//" are never passed to it.
    const LocationIndex index = indexOf({"/"});
    EXPECT_TRUE(index.covers("/"));
    EXPECT_FALSE(index.covers("/home"));
    EXPECT_TRUE(index.covers("//home"));
}

TEST(LocationIndex, ComparesBytes) {
    const LocationIndex index = indexOf({"/mnt/\xff"});
    EXPECT_TRUE(index.covers("/mnt/\xff/a"));
    EXPECT_FALSE(index.covers("/mnt/\xfe/a"));
}

TEST(LocationIndex, ForgetsAllItsNames) {
    LocationIndex index = indexOf({"/Users/x"});
    index.clear();
    EXPECT_FALSE(index.covers("/Users/x"));
}

/// The reference implementation: checks all rows.
bool isCovered(const std::vector<std::string>& names, const std::string& path) {
    return std::any_of(names.begin(), names.end(), [&path](const std::string& name) {
        return name == path || (pathExtension(name).empty() && path.starts_with(name + "/"));
    });
}

TEST(LocationIndex, AgreesWithAReferenceImplementation) {
    std::mt19937 generator(20260131);
    const auto path = [&generator] {
        constexpr std::string_view letters = "//ab.";
        std::string text = "/";
        const std::size_t length = generator() % 8;
        while (text.size() < length) {
            text += letters[generator() % letters.size()];
        }
        return text;
    };
    int covered = 0;
    for (int round = 0; round < 2000; ++round) {
        std::vector<std::string> names(generator() % 4);
        std::generate(names.begin(), names.end(), path);
        const LocationIndex index = indexOf(names);
        for (int query = 0; query < 10; ++query) {
            const std::string asked = path();
            EXPECT_EQ(index.covers(asked), isCovered(names, asked)) << asked;
            covered += isCovered(names, asked) ? 1 : 0;
        }
    }
    EXPECT_GT(covered, 500);
    EXPECT_LT(covered, 19'500);
}

}  // namespace
}  // namespace tarvin
