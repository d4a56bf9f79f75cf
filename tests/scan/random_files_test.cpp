#include "support/comparison_fixture.h"
#include "support/pairwise_finder.h"
#include "support/test_seeds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <ostream>
#include <random>

namespace tarvin {
namespace {

struct Shape {
    const char* name;
    std::size_t files;
    std::vector<std::size_t> sizes;
    unsigned contents;  // the maximum number of different contents of one size
};

void PrintTo(const Shape& shape, std::ostream* out) {  // NOLINT(readability-identifier-naming)
    *out << shape.name;
}

/// Equal and nearly equal files: those of one size are equal or differ in one byte, at an offset
/// where the method of comparison changes.
class RandomFiles : public ::testing::TestWithParam<std::tuple<Shape, unsigned>> {
 protected:
    static void compareRandomFiles(std::uint64_t seed);
};

std::string variant(std::size_t size, unsigned number) {
    std::string content = noise(size, size);
    if (size == 0 || number == 0) {
        return content;
    }
    const std::array<std::size_t, 8> places{0,         size - 1,      size / 2,   4096,
                                            16 * 1024, size - 16'000, 128 * 1024, 256 * 1024 + 7};
    const std::size_t place = places[number % places.size()] % size;
    content[place] = static_cast<char>(content[place] ^ static_cast<char>(1 + number / 8));
    return content;
}

void RandomFiles::compareRandomFiles(std::uint64_t seed) {
    const auto& [shape, workers] = GetParam();
    std::mt19937_64 random(seed);
    ComparisonFixture fixture(systemFileSystem(), {workers, workers * 4});
    const std::array<const char*, 4> extensions{"jpg", "PNG", "jpeg", "gif copy"};
    for (std::size_t number = 0; number < shape.files; ++number) {
        const std::size_t size = shape.sizes[random() % shape.sizes.size()];
        const std::string name =
            std::to_string(number) + "." + extensions[random() % extensions.size()];
        fixture.add(name, variant(size, static_cast<unsigned>(random() % shape.contents)));
    }
    std::shuffle(fixture.list().begin(), fixture.list().end(), random);
    const PlainResult expected = findPairwise(fixture.list());
    const PlainResult found = plainResultOf(*fixture.find());
    EXPECT_TRUE(found == expected) << "expected:\n"
                                   << printed(expected) << "found:\n"
                                   << printed(found);
    EXPECT_EQ(fixture.processed(), shape.files);
    EXPECT_EQ(fixture.bytes().done, fixture.bytes().total);
    EXPECT_TRUE(fixture.list().empty());
}

TEST_P(RandomFiles, GiveTheSetsOfTheReferenceImplementation) {
    for (const std::uint64_t seed : testSeeds(1)) {
        SCOPED_TRACE(seedText(seed));
        compareRandomFiles(seed);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, RandomFiles,
    ::testing::Combine(
        ::testing::Values(Shape{"Tiny", 300, {0, 1, 2, 3, 100}, 6},
                          Shape{"SmallClasses", 200, {5'000, 16'384, 16'385, 40'000}, 12},
                          Shape{"ManyOfOneSize", 400, {20'000}, 60},
                          Shape{"ManyEqual", 300, {33'000}, 2},
                          Shape{"ManySmallOfOneSize", 500, {700}, 100},
                          Shape{"Large", 24, {600'000, 5'000'000}, 8},
                          Shape{"LargeMany", 150, {300'000}, 16}),
        ::testing::Values(1U, 2U, 8U)),
    [](const auto& instance) {
        return std::string(std::get<0>(instance.param).name) + "With" +
               std::to_string(std::get<1>(instance.param)) + "Workers";
    });

}  // namespace
}  // namespace tarvin
