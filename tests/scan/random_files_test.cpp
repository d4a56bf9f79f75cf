#include "support/comparison_fixture.h"
#include "support/pairwise_finder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <random>

namespace tarvin {
namespace {

struct Shape {
    const char* name;
    std::size_t files;
    std::vector<std::size_t> sizes;
    unsigned contents;  // different contents of one size, at most
};

void PrintTo(const Shape& shape, std::ostream* out) {  // NOLINT(readability-identifier-naming)
    *out << shape.name;
}

/// Equal and nearly equal files: those of one size differ in one byte at a telling place, or not.
class RandomFiles : public ::testing::TestWithParam<std::tuple<Shape, unsigned>> {};

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

TEST_P(RandomFiles, GiveTheSetsOfThePairwiseFinder) {
    const auto& [shape, workers] = GetParam();
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    ComparisonFixture bench(systemFileSystem(), {workers, workers * 4});
    const std::array<const char*, 4> extensions{"jpg", "PNG", "jpeg", "gif copy"};
    for (std::size_t number = 0; number < shape.files; ++number) {
        const std::size_t size = shape.sizes[random() % shape.sizes.size()];
        const std::string name =
            std::to_string(number) + "." + extensions[random() % extensions.size()];
        bench.add(name, variant(size, static_cast<unsigned>(random() % shape.contents)));
    }
    std::shuffle(bench.list().begin(), bench.list().end(), random);
    const PlainResult expected = findPairwise(bench.list());
    const PlainResult found = plainResultOf(*bench.find());
    EXPECT_TRUE(found == expected) << "expected:\n"
                                   << printed(expected) << "found:\n"
                                   << printed(found);
    EXPECT_EQ(bench.processed(), shape.files);
    EXPECT_TRUE(bench.list().empty());
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
