// Comparisons on a volume whose inode numbers or dates change from answer to answer.

#include "support/comparison_fixture.h"
#include "support/faulty_file_system.h"
#include "support/pairwise_finder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

namespace tarvin {
namespace {

struct Jitter {
    bool inodes;
    bool dates;
};

std::ostream& operator<<(std::ostream& out, const Jitter& jitter) {
    return out << (jitter.inodes ? "inodes" : "") << (jitter.dates ? "dates" : "");
}

class UnsteadyVolume {
 public:
    explicit UnsteadyVolume(Jitter jitter) {
        if (jitter.inodes) {
            fileSystem_.jitterInodes();
        }
        if (jitter.dates) {
            fileSystem_.jitterDates();
        }
    }

    std::string add(std::string_view name, std::string_view content) {
        const std::string path = fixture_.folder().writeFile(name, content);
        addPath(path);
        return path;
    }

    /// Appends the file with what the volume says about it now, as a collection does.
    void addPath(const std::string& path) {
        const Result<FileAttributes> now = fileSystem_.attributesAtPath(path);
        const std::size_t slash = path.rfind('/');
        const Directory* const folder = fixture_.store().addRoot(path.substr(0, slash));
        fixture_.list().push_back(fixture_.store().addFile(folder, path.substr(slash + 1),
                                                           now->size, now->modified, std::nullopt));
    }

    PlainResult find() { return plainResultOf(*fixture_.find()); }
    [[nodiscard]] std::vector<Unreadable> unreadable() const { return fixture_.unreadable().kept; }
    FaultyFileSystem& fileSystem() { return fileSystem_; }
    [[nodiscard]] std::string pathOf(std::string_view name) {
        return fixture_.folder().pathOf(name);
    }

 private:
    FaultyFileSystem fileSystem_;
    ComparisonFixture fixture_{fileSystem_};
};

void overwrite(const std::string& path, std::size_t at, std::string_view bytes) {
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(static_cast<std::streamoff>(at));
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::vector<Unreadable> changed(const std::vector<std::string>& paths) {
    std::vector<Unreadable> files;
    for (const std::string& path : paths) {
        files.push_back({path, false, {}, true});
    }
    return files;
}

using Shape = std::tuple<Jitter, std::size_t, int>;

/// Small files, some that are kept open, and more than are kept open and than go without hashes.
class UnsteadyFiles : public ::testing::TestWithParam<Shape> {};

TEST_P(UnsteadyFiles, GiveTheSetsOfASteadyOne) {
    const auto [jitter, size, count] = GetParam();
    UnsteadyVolume volume(jitter);
    std::vector<std::string> same;
    for (int number = 0; number < count; ++number) {
        same.push_back(volume.add(std::to_string(number) + ".txt", noise(size, 1)));
    }
    volume.add("other.txt", noise(size, 2));
    std::string late = noise(size, 1);
    late.back() = static_cast<char>(late.back() + 1);
    volume.add("late.txt", late);
    EXPECT_EQ(volume.find(), (PlainResult{{"txt", {same}}}));
    EXPECT_EQ(volume.unreadable(), std::vector<Unreadable>{});
}

INSTANTIATE_TEST_SUITE_P(Shapes, UnsteadyFiles,
                         ::testing::Combine(::testing::Values(Jitter{true, false},
                                                              Jitter{false, true},
                                                              Jitter{true, true}),
                                            ::testing::Values(5, 30'000, 700'000),
                                            ::testing::Values(2, 40, 70)));

class UnsteadyDates : public UnsteadyFiles {};

TEST_P(UnsteadyDates, DoNotMakeAFileTheCopyOfItself) {
    const auto [jitter, size, count] = GetParam();
    UnsteadyVolume volume(jitter);
    const std::string path = volume.add("a.txt", noise(size, 1));
    for (int number = 1; number < count; ++number) {
        volume.addPath(path);
    }
    EXPECT_EQ(volume.find(), PlainResult{});
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, UnsteadyDates,
    ::testing::Combine(::testing::Values(Jitter{false, true}, Jitter{true, true}),
                       ::testing::Values(5, 30'000, 700'000), ::testing::Values(2, 40, 70)));

/// A file that never was equal to the other one, but whose parts are while each is read.
class TornFile : public ::testing::TestWithParam<Jitter> {};

TEST_P(TornFile, IsInNoSet) {
    constexpr std::size_t edge = ComparisonOrder::edgeBytes;
    UnsteadyVolume volume(GetParam());
    const std::string whole(8 * edge, 'a');
    const std::string one = volume.add("1.txt", whole);
    const std::string two = volume.add("2.txt", whole);
    std::string torn = whole;
    torn[4 * edge] = 'b';
    const std::string three = volume.add("3.txt", torn);
    volume.fileSystem().beforeCall(
        FileCall::readAt, 3,
        [&] {
            overwrite(three, 4 * edge, "a");
            overwrite(three, 100, "b");
        },
        three);
    EXPECT_EQ(volume.find(), (PlainResult{{"txt", {{one, two}}}}));
    EXPECT_EQ(volume.unreadable(), changed({three}));
}

INSTANTIATE_TEST_SUITE_P(Volumes, TornFile,
                         ::testing::Values(Jitter{false, false}, Jitter{true, false},
                                           Jitter{false, true}, Jitter{true, true}));

TEST(UnsteadyPair, IsLoggedIfTheSecondComparisonDiffers) {
    UnsteadyVolume volume({true, true});
    const std::string one = volume.add("1.txt", "same bytes");
    const std::string two = volume.add("2.txt", "same bytes");
    volume.fileSystem().beforeCall(FileCall::readAt, 2, [&] { overwrite(two, 0, "S"); }, two);
    EXPECT_EQ(volume.find(), PlainResult{});
    EXPECT_EQ(volume.unreadable(), changed({one, two}));
}

TEST(UnsteadyFile, IsReadTwiceOnlyThere) {
    for (const bool isUnsteady : {false, true}) {
        UnsteadyVolume volume({isUnsteady, isUnsteady});
        const std::string one = volume.add("1.txt", noise(100'000, 1));
        volume.add("2.txt", noise(100'000, 1));
        volume.find();
        EXPECT_EQ(volume.fileSystem().bytesRead(one), isUnsteady ? 200'000U : 100'000U);
    }
}

TEST(UnsteadyFile, ThatGrowsIsLogged) {
    UnsteadyVolume volume({true, true});
    const std::string one = volume.add("1.txt", noise(100'000, 1));
    volume.add("2.txt", noise(100'000, 1));
    volume.fileSystem().beforeCall(
        FileCall::readAt, 3,
        [&] { std::ofstream(one, std::ios::binary | std::ios::app) << "more"; }, one);
    EXPECT_EQ(volume.find(), PlainResult{});
    EXPECT_EQ(volume.unreadable(), changed({one}));
}

}  // namespace
}  // namespace tarvin
