#include "cli/progress_line.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

constexpr std::size_t wide = 200;

Progress collecting(const std::string& path) {
    Progress progress;
    progress.path = path;
    return progress;
}

Progress comparing(std::uint64_t processed, std::uint64_t total) {
    Progress progress;
    progress.comparing = true;
    progress.path = "/photos/summer/photo.jpg";
    progress.processed = processed;
    progress.total = total;
    progress.bytesRead = 1'050'000;
    progress.elapsed = "Elapsed Time: 00:00:12";
    return progress;
}

TEST(ProgressText, TheCollectionBeginsWithoutAName) {
    EXPECT_EQ(progressText(collecting(""), wide), "Collecting Files...  00:00:00");
}

TEST(ProgressText, TheCollectionShowsTheNameWithoutTheFolder) {
    Progress progress = collecting("/photos/summer/photo.jpg");
    progress.elapsed = "Elapsed Time: 00:00:02";
    EXPECT_EQ(progressText(progress, wide), "Collecting Files: photo.jpg  00:00:02");
}

TEST(ProgressText, AFolderWaitedForIsShownWithItsPath) {
    Progress progress = comparing(45, 100);
    progress.waiting = true;
    progress.path = "/mnt/server/photos";
    EXPECT_EQ(progressText(progress, wide), "Waiting for: /mnt/server/photos  00:00:12");
}

TEST(ProgressText, TheComparisonShowsABarAndTheCurrentFile) {
    EXPECT_EQ(progressText(comparing(45, 100), wide),
              "[#########           ] 45%  photo.jpg  1.05 MB  00:00:12");
}

TEST(ProgressText, TheBarGoesFromEmptyToFull) {
    EXPECT_EQ(progressText(comparing(0, 3), 25), "[                    ] 0%");
    EXPECT_EQ(progressText(comparing(2, 3), 26), "[#############       ] 66%");
    EXPECT_EQ(progressText(comparing(3, 3), 27), "[####################] 100%");
}

TEST(ProgressText, WithoutFilesTheBarIsEmpty) {
    EXPECT_EQ(progressText(comparing(0, 0), 25), "[                    ] 0%");
}

TEST(ProgressText, NeverShowsMoreThanAHundredPercent) {
    EXPECT_EQ(progressText(comparing(5, 3), 27), "[####################] 100%");
}

TEST(ProgressText, OfMillionsOfFilesThePercentageIsRight) {
    EXPECT_EQ(progressText(comparing(4'000'000'000'000, 8'000'000'000'000), 26),
              "[##########          ] 50%");
}

TEST(ProgressText, ANarrowLineShortensTheNameFirst) {
    EXPECT_EQ(progressText(comparing(45, 100), 51),
              "[#########           ] 45%  phot  1.05 MB  00:00:12");
    EXPECT_EQ(progressText(comparing(45, 100), 47),
              "[#########           ] 45%    1.05 MB  00:00:12");
    EXPECT_EQ(progressText(comparing(45, 100), 40), "[#########           ] 45%    1.05 MB  0");
    EXPECT_EQ(progressText(comparing(45, 100), 0), "");
}

TEST(ProgressText, ALongNameIsTruncatedBeforeTheTime) {
    EXPECT_EQ(progressText(collecting("/a/photo.jpg"), 33), "Collecting Files: photo  00:00:00");
    EXPECT_EQ(progressText(collecting("/a/photo.jpg"), 10), "  00:00:00");
    EXPECT_EQ(progressText(collecting("/a/photo.jpg"), 5), "  00:");
}

TEST(ProgressText, TruncatesBetweenCharacters) {
    EXPECT_EQ(progressText(collecting("/\u00E4\u00E4\u00E4"), 30),
              "Collecting Files: \u00E4\u00E4  00:00:00");
}

TEST(ProgressText, WideCharactersTakeTwoColumns) {
    EXPECT_EQ(progressText(collecting("/\u5199\u771F.jpg"), 32),
              "Collecting Files: \u5199\u771F  00:00:00");
    EXPECT_EQ(progressText(collecting("/\u5199\u771F.jpg"), 31),
              "Collecting Files: \u5199  00:00:00");
}

TEST(ProgressText, NoControlCharacterReachesTheTerminal) {
    EXPECT_EQ(progressText(collecting("/a/x\n\x1B[2J\xFF\u009B"), wide),
              "Collecting Files: x??[2J??  00:00:00");
}

}  // namespace
}  // namespace tarvin
