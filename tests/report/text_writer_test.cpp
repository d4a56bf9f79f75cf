#include "report/fake_report.h"
#include "report/result_writer.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

std::string textOf(const MadeUpReport& report) {
    return writtenBy(writeText, report);
}

TEST(TextWriter, SetsAreListedByCategoryAndExtension) {
    MadeUpReport report;
    report.addSet(Category::documents, {{"/d/a.pdf", 1'050'000}, {"/d/b.pdf", 1'050'000}});
    report.addSet(Category::image, {{"/p/a.jpg", 1000}, {"/p/b.jpg", 1000}, {"/p/c.jpg", 1000}});
    report.addSet(Category::image, {{"/p/a.png", 0}, {"/q/a.png", 0}});
    report.addSet(Category::image, {{"/p/x.jpg", 2'500'000'000}, {"/q/x.jpg", 2'500'000'000}});
    report.setCollected(Category::image, 9);
    report.setCollected(Category::documents, 3);
    report.setElapsedSeconds(3725.5);
    EXPECT_EQ(textOf(report),
              "Image\n"
              "  jpg\n"
              "    Set(2)  1.00 KB each\n"
              "      /p/a.jpg\n"
              "      /p/b.jpg\n"
              "      /p/c.jpg\n"
              "    Set(1)  2.50 GB each\n"
              "      /p/x.jpg\n"
              "      /q/x.jpg\n"
              "  png\n"
              "    Set(1)  0.00 KB each\n"
              "      /p/a.png\n"
              "      /q/a.png\n"
              "\n"
              "Documents\n"
              "  pdf\n"
              "    Set(1)  1.05 MB each\n"
              "      /d/a.pdf\n"
              "      /d/b.pdf\n"
              "\n"
              "5 duplicate files in 4 sets. 2.50 GB can be regained.\n"
              "12 files compared. Elapsed Time: 01:02:05\n");
}

TEST(TextWriter, CategoriesComeInTheirOwnOrder) {
    MadeUpReport report;
    for (const Category category : {Category::other, Category::documents, Category::audio,
                                    Category::video, Category::image}) {
        report.addSet(category, {{"/1.x", 1000}, {"/2.x", 1000}});
    }
    const std::string set =
        "  x\n"
        "    Set(1)  1.00 KB each\n"
        "      /1.x\n"
        "      /2.x\n"
        "\n";
    EXPECT_EQ(textOf(report), "Image\n" + set + "Video\n" + set + "Audio\n" + set + "Documents\n" +
                                  set + "Other\n" + set +
                                  "5 duplicate files in 5 sets. 5.00 KB can be regained.\n"
                                  "0 files compared. Elapsed Time: 00:00:00\n");
}

TEST(TextWriter, EachFileIsOneLine) {
    MadeUpReport report;
    report.addSet(Category::other,
                  {{"/a \"b\", c.e\nx", 1000}, {"/\xFF\x1B[2J/it's \u00E4.x", 1000}});
    report.setCollected(Category::other, 1);
    EXPECT_EQ(textOf(report),
              "Other\n"
              "  $'e\\nx'\n"
              "    Set(1)  1.00 KB each\n"
              "      $'/a \"b\", c.e\\nx'\n"
              "      $'/\\xff\\x1b[2J/it\\'s \u00E4.x'\n"
              "\n"
              "1 duplicate file in 1 set. 1.00 KB can be regained.\n"
              "1 file compared. Elapsed Time: 00:00:00\n");
}

TEST(TextWriter, SaysThatThereWereNoFiles) {
    EXPECT_EQ(textOf(MadeUpReport()),
              "No duplicates File found\n"
              "0 files compared. Elapsed Time: 00:00:00\n");
}

TEST(TextWriter, SaysThatThereAreNoDuplicates) {
    MadeUpReport report;
    report.setCollected(Category::video, 2);
    EXPECT_EQ(textOf(report),
              "No duplicates found.\n"
              "2 files compared. Elapsed Time: 00:00:00\n");
}

TEST(TextWriter, SaysThatAStoppedScanIsIncomplete) {
    MadeUpReport report;
    report.setStopped();
    EXPECT_EQ(textOf(report),
              "Scan stopped early; the result is incomplete.\n"
              "No duplicates found so far.\n"
              "0 files collected. Elapsed Time: 00:00:00\n");
}

TEST(TextWriter, ListsTheConfirmedSetsOfAStoppedScan) {
    MadeUpReport report;
    report.addSet(Category::audio, {{"/a.mp3", 3000}, {"/b.mp3", 3000}});
    report.setCollected(Category::audio, 50);
    report.setStopped();
    EXPECT_EQ(textOf(report),
              "Audio\n"
              "  mp3\n"
              "    Set(1)  3.00 KB each\n"
              "      /a.mp3\n"
              "      /b.mp3\n"
              "\n"
              "Scan stopped early; the result is incomplete.\n"
              "1 duplicate file in 1 set. 3.00 KB can be regained.\n"
              "50 files collected. Elapsed Time: 00:00:00\n");
}

TEST(TextWriter, MarksAreShownAndExplained) {
    MadeUpReport report;
    report.addSet(Category::audio, {{"/a.mp3", 3000}, {"/b.mp3", 3000}});
    report.setCollected(Category::audio, 2);
    report.markDuplicates();
    EXPECT_EQ(textOf(report),
              "Audio\n"
              "  mp3\n"
              "    Set(1)  3.00 KB each\n"
              "      [ ] /a.mp3\n"
              "      [x] /b.mp3\n"
              "\n"
              "Files marked [x] may be moved to the Trash, those marked [ ] stay.\n"
              "1 duplicate file in 1 set. 3.00 KB can be regained.\n"
              "2 files compared. Elapsed Time: 00:00:00\n");
}

TEST(TextWriter, MarksAreNotExplainedWithoutSets) {
    MadeUpReport report;
    report.setCollected(Category::video, 2);
    report.markDuplicates();
    EXPECT_EQ(textOf(report),
              "No duplicates found.\n"
              "2 files compared. Elapsed Time: 00:00:00\n");
}

}  // namespace
}  // namespace tarvin
