#include "scan/size_classes.h"

#include "model/file_store.h"
#include "support/test_seeds.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <vector>

namespace tarvin {
namespace {

using Positions = std::vector<std::uint32_t>;

/// Files with these sizes, in this order.
class Files final {
 public:
    explicit Files(const std::vector<std::uint64_t>& sizes) {
        const Directory* const folder = store_->addRoot("/files");
        for (const std::uint64_t size : sizes) {
            files_.push_back(store_->addFile(folder, "a.txt", size, std::nullopt, std::nullopt));
        }
    }

    [[nodiscard]] const std::vector<File*>& list() const { return files_; }

 private:
    std::shared_ptr<FileStore> store_ = FileStore::create();
    std::vector<File*> files_;
};

Positions membersOf(const SizeClasses& classes, std::size_t number) {
    Positions positions{77};  // what a class before it may have left there
    classes.members(number, positions);
    return positions;
}

TEST(SizeClasses, AreNoneWithoutFiles) {
    EXPECT_EQ(SizeClasses(std::vector<File*>()).count(), 0u);
}

TEST(SizeClasses, AreNoneForOneFile) {
    const Files files({5});
    const SizeClasses classes(files.list());
    EXPECT_EQ(classes.count(), 0u);
    EXPECT_EQ(classes.classOf(0), SizeClasses::noClass);
}

TEST(SizeClasses, AreNoneForFilesOfDifferentSizes) {
    const Files files({5, 4, 3, 0});
    const SizeClasses classes(files.list());
    EXPECT_EQ(classes.count(), 0u);
    for (std::uint32_t position = 0; position < 4; ++position) {
        EXPECT_EQ(classes.classOf(position), SizeClasses::noClass);
    }
}

TEST(SizeClasses, AreNumberedByTheirFirstFiles) {
    const Files files({7, 9, 0, 9, 7, 3, 0, 7});
    const SizeClasses classes(files.list());
    ASSERT_EQ(classes.count(), 3u);
    EXPECT_EQ(membersOf(classes, 0), (Positions{0, 4, 7}));
    EXPECT_EQ(membersOf(classes, 1), (Positions{1, 3}));
    EXPECT_EQ(membersOf(classes, 2), (Positions{2, 6}));
    EXPECT_EQ(classes.memberCount(0), 3u);
    EXPECT_EQ(classes.memberCount(1), 2u);
    EXPECT_EQ(classes.firstOf(0), 0u);
    EXPECT_EQ(classes.firstOf(1), 1u);
    EXPECT_EQ(classes.firstOf(2), 2u);
    EXPECT_EQ(classes.classOf(7), 0u);
    EXPECT_EQ(classes.classOf(3), 1u);
    EXPECT_EQ(classes.classOf(6), 2u);
    EXPECT_EQ(classes.classOf(5), SizeClasses::noClass);
}

TEST(SizeClasses, HoldAllFilesOfOneSize) {
    const Files files(std::vector<std::uint64_t>(1000, 0));
    const SizeClasses classes(files.list());
    ASSERT_EQ(classes.count(), 1u);
    EXPECT_EQ(classes.memberCount(0), 1000u);
    EXPECT_EQ(membersOf(classes, 0).front(), 0u);
    EXPECT_EQ(membersOf(classes, 0).back(), 999u);
}

TEST(SizeClasses, DistinguishTheLargestSizes) {
    constexpr std::uint64_t largest = std::numeric_limits<std::uint64_t>::max();
    const Files files(
        {largest, largest - 1, std::uint64_t{1} << 32, 0, largest, 1, std::uint64_t{1} << 32});
    const SizeClasses classes(files.list());
    ASSERT_EQ(classes.count(), 2u);
    EXPECT_EQ(membersOf(classes, 0), (Positions{0, 4}));
    EXPECT_EQ(membersOf(classes, 1), (Positions{2, 6}));
}

/// Reference implementation with an ordered map.
struct Plain {
    explicit Plain(const std::vector<std::uint64_t>& sizes) {
        std::map<std::uint64_t, Positions> bySize;
        for (std::uint32_t position = 0; position < sizes.size(); ++position) {
            bySize[sizes[position]].push_back(position);
        }
        std::map<std::uint32_t, Positions> byFirst;
        for (const auto& [size, positions] : bySize) {
            if (positions.size() > 1) {
                byFirst[positions.front()] = positions;
            }
        }
        for (const auto& [first, positions] : byFirst) {
            classes.push_back(positions);
        }
    }

    std::vector<Positions> classes;
};

void expectAsPlain(const std::vector<std::uint64_t>& sizes) {
    const Files files(sizes);
    const SizeClasses classes(files.list());
    const Plain plain(sizes);
    ASSERT_EQ(classes.count(), plain.classes.size());
    std::vector<std::uint32_t> classOf(sizes.size(), SizeClasses::noClass);
    for (std::uint32_t number = 0; number < plain.classes.size(); ++number) {
        EXPECT_EQ(membersOf(classes, number), plain.classes[number]);
        EXPECT_EQ(classes.memberCount(number), plain.classes[number].size());
        EXPECT_EQ(classes.firstOf(number), plain.classes[number].front());
        for (const std::uint32_t position : plain.classes[number]) {
            classOf[position] = number;
        }
    }
    for (std::uint32_t position = 0; position < sizes.size(); ++position) {
        EXPECT_EQ(classes.classOf(position), classOf[position]) << position;
    }
}

TEST(SizeClasses, EqualTheReferenceForRandomLists) {
    for (const std::uint64_t seed : testSeeds(300)) {
        SCOPED_TRACE(seedText(seed));
        std::mt19937_64 random(seed);
        std::vector<std::uint64_t> sizes(random() % 200);
        const std::uint64_t variety = 1 + random() % 300;
        // Also multiples of a block size, whose low bits are equal.
        const std::uint64_t unit = std::uint64_t{1} << random() % 50;
        for (std::uint64_t& size : sizes) {
            size = random() % variety * unit;
        }
        expectAsPlain(sizes);
    }
}

TEST(SizeClasses, EqualTheReferenceForALongList) {
    std::mt19937_64 random(20260131);
    std::vector<std::uint64_t> sizes(200'000);
    for (std::uint64_t& size : sizes) {
        size = random() % 100'000;
    }
    expectAsPlain(sizes);
}

}  // namespace
}  // namespace tarvin
