#include "scan/collector.h"
#include "scan/scan_run.h"
#include "support/comparison_fixture.h"
#include "support/fake_platform.h"
#include "support/faulty_file_system.h"
#include "support/file_tree.h"
#include "support/pairwise_finder.h"
#include "support/scan_tools.h"
#include "support/test_seeds.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace tarvin {
namespace {

class SilentObserver final : public ScanObserver {};

/// A scan of a random tree, with files of all categories and shuffled listings.
class RandomTreeScan final {
 public:
    explicit RandomTreeScan(std::uint64_t seed) : random_(seed) {
        fileSystem_.setListingOrder(ListingOrder::shuffled, random_());
        fill("", 4);
    }

    /// Compares the results of a scan with those of the reference implementation.
    void check(unsigned workers);

 private:
    /// Creates files in `folder`, many of them equal, some nearly, and folders with more of both.
    void fill(const std::string& folder, int depth) {
        static const std::vector<std::string> extensions{
            "jpg", "PNG", "mp4", "mkv", "mp3", "flac", "txt", "pdf", "zip", "xyz", "jpg copy"};
        const std::uint64_t files = random_() % 20;
        for (std::uint64_t number = 0; number < files; ++number) {
            tree_.writeFile(
                folder + std::to_string(number) + "." + extensions[random_() % extensions.size()],
                content());
        }
        const std::uint64_t folders = depth > 0 ? 1 + random_() % 3 : 0;
        for (std::uint64_t number = 0; number < folders; ++number) {
            fill(folder + (random_() % 8 == 0 ? "bundle.app/" : "folder ") +
                     std::to_string(number) + "/",
                 depth - 1);
        }
    }

    /// Few sizes and few contents, which differ at the beginning, in the middle or at the end.
    std::string content() {
        constexpr std::array<std::size_t, 6> sizes{0, 1, 300, 16'384, 20'000, 150'000};
        const std::size_t size = sizes[random_() % sizes.size()];
        std::string bytes = noise(size, size);
        if (size > 0 && random_() % 2 == 0) {
            const std::array<std::size_t, 3> places{0, size / 2, size - 1};
            bytes[places[random_() % places.size()]] = static_cast<char>(random_() % 2);
        }
        return bytes;
    }

    /// The files in the order in which a single worker collects them.
    CategoryLists collect() {
        CategoryLists lists;
        ScanTools tools(fileSystem_, {1, 1});
        ProgressGate gate{std::chrono::hours(1)};
        const ExceptionFilter exceptions;
        const ScanFilter filter;
        SilentObserver observer;
        Collector collector(tools.services(), exceptions, filter, observer, gate, lists);
        std::vector<LocationRow> rows = locations();
        EXPECT_EQ(collector.addAllPhotos(rows), Collector::Outcome::collected);
        return lists;
    }

    [[nodiscard]] std::vector<LocationRow> locations() const {
        return {{tree_.path(), "", "", true, true}};
    }

    std::mt19937_64 random_;
    FileTree tree_;
    FaultyFileSystem fileSystem_;
    FakePlatform platform_{fileSystem_};
};

void RandomTreeScan::check(unsigned workers) {
    CategoryLists lists = collect();
    SilentObserver observer;
    ScanRun::Settings settings;
    settings.workers = {workers, workers * 2};
    ScanRun run(platform_, observer, settings);
    run.start(locations(), {});
    run.wait();
    std::uint64_t redundant = 0;
    for (const Category category : allCategories) {
        const PlainResult expected = findPairwise(lists.of(category));
        const PlainResult found = plainResultOf(*run.result().of(category));
        EXPECT_TRUE(found == expected) << categoryName(category) << ", expected:\n"
                                       << printed(expected) << "found:\n"
                                       << printed(found);
        redundant += run.result().of(category)->totalFiles();
    }
    EXPECT_EQ(run.result().modal->totalFiles(), redundant);
    EXPECT_EQ(run.processed(), lists.total());
    EXPECT_EQ(run.bytesCompared().done, run.bytesCompared().total);
}

class RandomScan : public ::testing::TestWithParam<unsigned> {};

TEST_P(RandomScan, FindsTheSetsOfTheReferenceInEachCategory) {
    for (const std::uint64_t seed : testSeeds(1)) {
        SCOPED_TRACE(seedText(seed));
        RandomTreeScan(seed).check(GetParam());
    }
}

INSTANTIATE_TEST_SUITE_P(Workers, RandomScan, ::testing::Values(1U, 2U, 8U));

}  // namespace
}  // namespace tarvin
