#include "controller/information.h"

#include "controls/images.h"
#include "model/result_tree.h"

#include <gtest/gtest.h>

#include <QFile>
#include <ostream>
#include <vector>

namespace tarvin {

void PrintTo(const Information& information, std::ostream* out) {
    *out << qPrintable(QStringList({information.informationHeader, information.duplicatesCount,
                                    information.duplicatesSize, information.otherInfomration,
                                    information.informationImage, information.actionButtonTitle})
                           .join(QStringLiteral(" | ")));
}

namespace {

class InformationAccordingTab : public ::testing::Test {
 protected:
    InformationAccordingTab() {
        fill(modal_, {makeExtension("jpg", {makeSet("f", {10, 10, 10})})});
        // Outdated totals.
        modal_.setTotalFiles(77);
        modal_.setTotalFilesSize(77);
    }

    std::optional<Information> ask(const ViewFlags& tabs) {
        const CountedList countedList = [this]() -> const Modal& {
            modal_.calculateTotalFilesAndSize();
            return modal_;
        };
        return informationAccordingTab(tabs, shown_, countedList, totals_);
    }

    Modal modal_;
    SummariesShown shown_;
    CategoryTotals totals_{
        .imageFiles = 100, .videoFiles = 20, .audioFiles = 3, .docsFiles = 5, .otherFiles = 6};
};

TEST_F(InformationAccordingTab, OfAllSumsTheMedia) {
    EXPECT_EQ(ask({.allTab = true}), (Information{"Duplicates Found", "Media: 123", "Documents: 5",
                                                  "Others: 6", "common_info", "Review"}));
    EXPECT_EQ(shown_, (SummariesShown{.allTabInfo = true}));
    EXPECT_EQ(modal_.totalFiles(), 77U);
}

TEST_F(InformationAccordingTab, OfACategoryCountsTheListInView) {
    EXPECT_EQ(ask({.imageTab = true}),
              (Information{"Information", "Image Duplicates: 2", "Memory Occupied: 0.02 KB", "",
                           "image_info", "Review"}));
    EXPECT_EQ(shown_, (SummariesShown{.imageTabInfo = true}));
    EXPECT_EQ(modal_.totalFiles(), 2U);
    EXPECT_EQ(modal_.totalFilesSize(), 20U);
}

TEST_F(InformationAccordingTab, HasALineAndAnImageForEachCategory) {
    EXPECT_EQ(ask({.videoTab = true}),
              (Information{"Information", "Video Duplicates: 2", "Memory Occupied: 0.02 KB", "",
                           "video_info", "Review"}));
    EXPECT_EQ(ask({.audioTab = true}),
              (Information{"Information", "Audio Duplicates: 2", "Memory Occupied: 0.02 KB", "",
                           "Audio_info", "Review"}));
    EXPECT_EQ(ask({.docsTab = true}),
              (Information{"Information", "Documents Duplicates: 2", "Memory Occupied: 0.02 KB", "",
                           "document_info", "Review"}));
    EXPECT_EQ(ask({.othrTab = true}),
              (Information{"Information", "Other Duplicates: 2", "Memory Occupied: 0.02 KB", "",
                           "other_info", "Review"}));
    EXPECT_EQ(
        shown_,
        (SummariesShown{
            .videoTabInfo = true, .audioTabInfo = true, .docsTabInfo = true, .othrTabInfo = true}));
}

TEST_F(InformationAccordingTab, IsGivenOnce) {
    const std::vector<ViewFlags> tabs{{.allTab = true},   {.imageTab = true}, {.audioTab = true},
                                      {.videoTab = true}, {.docsTab = true},  {.othrTab = true}};
    for (const ViewFlags& tab : tabs) {
        EXPECT_TRUE(ask(tab).has_value());
        EXPECT_FALSE(ask(tab).has_value());
    }
    shown_ = {};
    EXPECT_TRUE(ask({.allTab = true}).has_value());
}

TEST_F(InformationAccordingTab, IsNoneWithoutAView) {
    EXPECT_FALSE(ask({}).has_value());
    EXPECT_EQ(shown_, SummariesShown{});
}

TEST_F(InformationAccordingTab, TakesTheFirstOfSeveralThatIsNew) {
    const ViewFlags two{.allTab = true, .videoTab = true, .audioTab = true};
    EXPECT_EQ(ask(two)->informationHeader, "Duplicates Found");
    EXPECT_EQ(ask(two)->informationImage, "Audio_info");
    EXPECT_EQ(ask(two)->informationImage, "video_info");
    EXPECT_FALSE(ask(two).has_value());
}

TEST_F(InformationAccordingTab, ShowsASumBeyondItsRangeAsItsFormatDoes) {
    totals_.docsFiles = 18446744073709551615U;
    EXPECT_EQ(ask({.allTab = true})->duplicatesSize, "Documents: -1");
}

TEST(Informations, SayThatACategoryHasNoDuplicates) {
    const auto expected = [](const char* text, const char* image) {
        return Information{"Information", text, "", "", image, "Ok"};
    };
    EXPECT_EQ(noDuplicatesInformation(ResultView::image),
              expected("No Image Duplicates Found", "image_info"));
    EXPECT_EQ(noDuplicatesInformation(ResultView::video),
              expected("No Video Duplicates Found", "video_info"));
    EXPECT_EQ(noDuplicatesInformation(ResultView::audio),
              expected("No Audio Duplicates Found", "Audio_info"));
    EXPECT_EQ(noDuplicatesInformation(ResultView::documents),
              expected("No Documents Duplicates Found", "document_info"));
    EXPECT_EQ(noDuplicatesInformation(ResultView::other),
              expected("No Other Duplicates Found", "other_info"));
}

TEST(Informations, ReportTheResultOfAnAction) {
    const auto expected = [](const char* first, const char* second = "") {
        return Information{"Information", first, second, "", "common_info", "Ok"};
    };
    EXPECT_EQ(allFilesOfSetInformation(), expected("All the files of same set cannot be selected"));
    EXPECT_EQ(nothingToDeleteInformation(), expected("Please select any file to delete."));
    EXPECT_EQ(deletionReport({2, 1'050'000}),
              expected("Duplicates Cleaned: 2", "Space Regained: 1.05 MB "));
    EXPECT_EQ(deletionReport({}), expected("Duplicates Cleaned: 0", "Space Regained: 0.00 KB "));
    EXPECT_EQ(exceptionsAddedInformation(3),
              expected("\nSuccessfully added 3 files to exceptions."));
    EXPECT_EQ(exceptionsRemovedInformation(), expected("\nAll exceptions has been removed."));
}

TEST(Informations, HaveImagesThatExist) {
    for (const ResultView view : {ResultView::all, ResultView::image, ResultView::audio,
                                  ResultView::video, ResultView::documents, ResultView::other}) {
        EXPECT_FALSE(pictureIcon(informationImageOf(view)).isNull())
            << qPrintable(informationImageOf(view));
    }
}

TEST(ResultAlerts, AskWithTheHarmlessAnswerForEsc) {
    const Alert stop = stopDeletionAlert();
    EXPECT_EQ(stop.messageText, "Tarvin Duplicate File Remover");
    EXPECT_EQ(stop.informativeText, "Are you sure, you want to stop this process?");
    EXPECT_EQ(stop.buttons, (QStringList{"YES", "NO"}));
    EXPECT_EQ(stop.escapeButton, 1);
    const Alert remove = removeExceptionsAlert();
    EXPECT_EQ(remove.messageText, "Tarvin Duplicate File Remover");
    EXPECT_EQ(remove.informativeText, "Are you sure, you want to remove all exceptions?");
    EXPECT_EQ(remove.buttons, (QStringList{"YES", "NO"}));
    EXPECT_EQ(remove.escapeButton, 1);
}

}  // namespace
}  // namespace tarvin
