#include "controller/result_texts.h"

#include "scan/texts.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tarvin {
namespace {

QString of(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

TEST(ResultTexts, NameWhatBoxesMark) {
    EXPECT_EQ(ResultTexts::checkBoxName("100%1 photos"), "Mark 100%1 photos");
    EXPECT_EQ(ResultTexts::partlyMarked(), "Partly marked");
}

TEST(ResultTexts, CountWhatIsMarked) {
    EXPECT_EQ(ResultTexts::selectedCount(0), "Marked Duplicate Files: 0");
    EXPECT_EQ(ResultTexts::selectedCount(18446744073709551615U),
              "Marked Duplicate Files: 18446744073709551615");
    EXPECT_EQ(ResultTexts::selectedSize(0), "Marked File Size: 0.00 KB");
    EXPECT_EQ(ResultTexts::selectedSize(1'048'576), "Marked File Size: 1.05 MB");
    EXPECT_EQ(ResultTexts::allFilesOfSet(), "All the files of same set cannot be selected");
}

TEST(ResultTexts, TellTheFilesOfASet) {
    EXPECT_EQ(ResultTexts::filesOfSet(1, 4'870'000), "1 file, 4.87 MB");
    EXPECT_EQ(ResultTexts::filesOfSet(5, 4'870'000), "5 files, 4.87 MB each");
    EXPECT_EQ(ResultTexts::filesOfSet(1'406, 400), "1,406 files, 0.40 KB each");
    EXPECT_EQ(ResultTexts::canBeRegained(19'480'000), "19.48 MB can be regained");
}

TEST(ResultTexts, AskAboutOneFileByItsShortenedName) {
    EXPECT_EQ(ResultTexts::exceptionQuestionFor("100%1.jpg"),
              "The file \"100%1.jpg\" will be excluded from all future scans. Press \"OK\" to "
              "exclude.");
    EXPECT_EQ(ResultTexts::exceptionQuestionFor(std::string(40, 'a') + ".jpg"),
              QStringLiteral("The file \"%1\u2026%2.jpg\" will be excluded from all future scans. "
                             "Press \"OK\" to exclude.")
                  .arg(QString(20, 'a'), QString(15, 'a')));
    EXPECT_EQ(ResultTexts::fileIsGone(), "The file is not there any more.");
}

TEST(ResultTexts, AreThoseOfOneFile) {
    EXPECT_EQ(ResultTexts::selectedPath("/home/100%1/a.png"), "Path: /home/100%1/a.png");
    EXPECT_EQ(ResultTexts::selectedPath("/l\xff/a\nb"), QStringLiteral("Path: /l\uFFFD/a\uFFFDb"));
    EXPECT_EQ(ResultTexts::doubleClickToOpen(), "Double Click On FIle To Open");
}

TEST(ResultTexts, AreToolTipsOfSorting) {
    EXPECT_EQ(ResultTexts::sortBySize(), "Sort by size");
    EXPECT_EQ(ResultTexts::sortByName(), "Sort by name");
    EXPECT_EQ(ResultTexts::sortByCreatedDate(), "Sort by created date");
    EXPECT_EQ(ResultTexts::sortByModifiedDate(), "Sort by modified date");
    EXPECT_EQ(ResultTexts::sortByDimension(), "Sort by dimension");
    EXPECT_EQ(ResultTexts::sortingOrder(true), "Ascending");
    EXPECT_EQ(ResultTexts::sortingOrder(false), "Descending");
}

TEST(ResultTexts, SummariseAllCategories) {
    EXPECT_EQ(ResultTexts::duplicatesFound(), "Duplicates Found");
    EXPECT_EQ(ResultTexts::media(12), "Media: 12");
    EXPECT_EQ(ResultTexts::documents(0), "Documents: 0");
    EXPECT_EQ(ResultTexts::others(1234567), "Others: 1234567");
    EXPECT_EQ(ResultTexts::review(), "Review");
}

TEST(ResultTexts, SummariseOneCategory) {
    EXPECT_EQ(ResultTexts::duplicates(ResultView::image, 1), "Image Duplicates: 1");
    EXPECT_EQ(ResultTexts::duplicates(ResultView::video, 2), "Video Duplicates: 2");
    EXPECT_EQ(ResultTexts::duplicates(ResultView::audio, 3), "Audio Duplicates: 3");
    EXPECT_EQ(ResultTexts::duplicates(ResultView::documents, 4), "Documents Duplicates: 4");
    EXPECT_EQ(ResultTexts::duplicates(ResultView::other, 18446744073709551615U),
              "Other Duplicates: 18446744073709551615");
    EXPECT_TRUE(ResultTexts::duplicates(ResultView::all, 1).isEmpty());
    EXPECT_EQ(ResultTexts::memoryOccupied(999), "Memory Occupied: 1.00 KB");
}

TEST(ResultTexts, SayThatACategoryHasNoDuplicates) {
    EXPECT_EQ(ResultTexts::noDuplicates(ResultView::image), "No Image Duplicates Found");
    EXPECT_EQ(ResultTexts::noDuplicates(ResultView::video), "No Video Duplicates Found");
    EXPECT_EQ(ResultTexts::noDuplicates(ResultView::audio), "No Audio Duplicates Found");
    EXPECT_EQ(ResultTexts::noDuplicates(ResultView::documents), "No Documents Duplicates Found");
    EXPECT_EQ(ResultTexts::noDuplicates(ResultView::other), "No Other Duplicates Found");
    EXPECT_TRUE(ResultTexts::noDuplicates(ResultView::all).isEmpty());
}

TEST(ResultTexts, AreThoseOfADeletion) {
    EXPECT_EQ(ResultTexts::information(), "Information");
    EXPECT_EQ(ResultTexts::ok(), "Ok");
    EXPECT_EQ(ResultTexts::nothingToDelete(), "Please select any file to delete.");
    EXPECT_EQ(ResultTexts::deleting(), "Deleting files, please wait...");
    EXPECT_EQ(ResultTexts::stopDeletionQuestion(), "Are you sure, you want to stop this process?");
    EXPECT_EQ(ResultTexts::duplicatesCleaned(2), "Duplicates Cleaned: 2");
    EXPECT_EQ(ResultTexts::spaceRegained(1'000'000), "Space Regained: 1.00 MB ");
}

TEST(ResultTexts, AreThoseOfExceptions) {
    EXPECT_EQ(ResultTexts::exceptionQuestion(true),
              "The selected files will be excluded from all future scans. Press \"OK\" to "
              "exclude.");
    EXPECT_EQ(ResultTexts::exceptionQuestion(false),
              "The selected similar photos will be excluded from all future scans. Press \"Ok\" "
              "to exclude.");
    EXPECT_EQ(ResultTexts::exceptionsAdded(3), "\nSuccessfully added 3 files to exceptions.");
    EXPECT_EQ(ResultTexts::removeExceptionsQuestion(),
              "Are you sure, you want to remove all exceptions?");
    EXPECT_EQ(ResultTexts::exceptionsRemoved(), "\nAll exceptions has been removed.");
    EXPECT_EQ(ResultTexts::yes(), "YES");
    EXPECT_EQ(ResultTexts::no(), "NO");
}

TEST(ResultTexts, SayWhatTheTerminalSays) {
    EXPECT_EQ(ResultTexts::selectedCount(5), of(markedFilesText(5)));
    EXPECT_EQ(ResultTexts::selectedSize(5'000), of(markedSizeText(5'000)));
    EXPECT_EQ(ResultTexts::duplicatesCleaned(5), of(duplicatesCleanedText(5)));
    EXPECT_EQ(ResultTexts::spaceRegained(5'000), of(spaceRegainedText(5'000)));
    EXPECT_EQ(ResultTexts::exceptionsAdded(5), of(exceptionsAddedText(5)));
    EXPECT_EQ(ResultTexts::exceptionsRemoved(), of(exceptionsRemovedText()));
}

}  // namespace
}  // namespace tarvin
