#include "controller/result_fixture.h"
#include "controls/attributed_title.h"
#include "controls/tab_button.h"
#include "interface/notice_panel.h"
#include "interface/picture_view.h"

namespace tarvin {
namespace {

class Marking : public ResultFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        scanAndReview();
    }

    [[nodiscard]] std::vector<bool> marks(int extension, int set) {
        std::vector<bool> marks;
        for (const auto& file : setOf(extension, set).files()) {
            marks.push_back(file->state() != CheckState::off);
        }
        return marks;
    }

    using Marks = std::vector<bool>;
};

TEST_F(Marking, BeginsWithNothingMarked) {
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    EXPECT_EQ(textOf("selectedSize"), "Marked File Size: 0.00 KB");
    EXPECT_TRUE(isEnabled("markAll"));
    EXPECT_TRUE(isEnabled("sortPopupBtn"));
    EXPECT_FALSE(isEnabled("unMarkAll"));
    EXPECT_FALSE(isEnabled("addEceptionBtn"));
    EXPECT_FALSE(window().results->sendToRecycle->isEnabled());
    EXPECT_FALSE(window().results->deletePermanently->isEnabled());
}

TEST_F(Marking, OfAllLeavesOneFileOfEachSet) {
    click("markAll");
    EXPECT_EQ(marks(0, 0), (Marks{false, true}));
    EXPECT_EQ(marks(0, 1), (Marks{false, true, true}));
    EXPECT_EQ(marks(1, 0), (Marks{false, true}));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
    EXPECT_EQ(textOf("selectedSize"), "Marked File Size: 0.02 KB");
    EXPECT_EQ(delegate->session().totalSelected, 4U);
    EXPECT_EQ(delegate->session().totalSize, 22U);
    EXPECT_FALSE(isEnabled("markAll"));
    EXPECT_TRUE(isEnabled("unMarkAll"));
    EXPECT_TRUE(isEnabled("addEceptionBtn"));
    EXPECT_TRUE(window().results->sendToRecycle->isEnabled());
    EXPECT_TRUE(window().results->deletePermanently->isEnabled());
    click("unMarkAll");
    EXPECT_EQ(marks(0, 1), (Marks{false, false, false}));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    EXPECT_TRUE(isEnabled("markAll"));
    EXPECT_FALSE(isEnabled("unMarkAll"));
}

TEST_F(Marking, OfOneFileEnablesEverything) {
    select(0, 1);
    clickFileBox(1);
    EXPECT_EQ(marks(0, 1), (Marks{false, true, false}));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 1");
    for (const char* name : {"markAll", "unMarkAll", "addEceptionBtn"}) {
        EXPECT_TRUE(isEnabled(name)) << name;
    }
    EXPECT_EQ(tree().indexOfSet(0, 1).data(Qt::CheckStateRole), QVariant(Qt::PartiallyChecked));
    EXPECT_EQ(list().index(1, ResultTable::ButtonCell).data(Qt::CheckStateRole),
              QVariant(Qt::Checked));
    clickFileBox(1);
    EXPECT_EQ(marks(0, 1), (Marks{false, false, false}));
}

TEST_F(Marking, RefusesTheLastFileOfASet) {
    select(0, 0);
    clickFileBox(0);
    EXPECT_EQ(information(), Lines());
    clickFileBox(1);
    EXPECT_EQ(marks(0, 0), (Marks{true, false}));
    EXPECT_EQ(information(),
              (Lines{"Information", "All the files of same set cannot be selected", "", ""}));
    const InformationPanel& panel = *window().informationWindow;
    EXPECT_EQ(positionOf(&panel), QPoint(250, 200));
    EXPECT_EQ(panel.scanInforOKBtn->attributedTitle(),
              setCenterAttributes(Qt::white, QStringLiteral("Ok"), 14));
    EXPECT_EQ(panel.scanInforOKBtn->fill(), QColor(21, 138, 162, 255));
    EXPECT_EQ(panel.scanInforOKBtn->alpha(), 1.0);
    EXPECT_EQ(panel.scanInforOKBtn->cornerRadius(), 0.0);
    EXPECT_EQ(panel.scanInfoImage->pictureName(), QStringLiteral("common_info"));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 1");
    click("scanInforOKBtn");
    EXPECT_EQ(information(), Lines());
    EXPECT_EQ(screen(), QStringLiteral("4"));
}

TEST_F(Marking, LetsAnyFileOfASetBeTheOneThatStays) {
    select(0, 1);
    clickFileBox(0);
    clickFileBox(1);
    EXPECT_EQ(information(), Lines());
    clickFileBox(2);
    EXPECT_EQ(marks(0, 1), (Marks{true, true, false}));
    EXPECT_EQ(information()[1], "All the files of same set cannot be selected");
}

TEST_F(Marking, OfASetKeepsTheMarkOfItsFirstFile) {
    select(0, 1);
    clickFileBox(0);
    clickBox(tree().indexOfSet(0, 1));
    EXPECT_EQ(marks(0, 1), (Marks{true, true, true}));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 2");
}

TEST_F(Marking, OfAnExtensionMarksItsSets) {
    clickBox(tree().indexOfExtension(0));
    EXPECT_EQ(marks(0, 0), (Marks{false, true}));
    EXPECT_EQ(marks(0, 1), (Marks{false, true, true}));
    EXPECT_EQ(marks(1, 0), (Marks{false, false}));
    EXPECT_EQ(tree().indexOfExtension(0).data(Qt::CheckStateRole), QVariant(Qt::Checked));
    clickBox(tree().indexOfExtension(0));
    EXPECT_EQ(marks(0, 1), (Marks{false, false, false}));
}

TEST_F(Marking, OfARowThatDoesNotExistChangesNothing) {
    click("markAll");
    window().results->selectedCount->setText(QStringLiteral("stale"));
    window().results->markAll->setEnabled(true);
    delegate->marking().checkBoxClicked({});
    // Nothing changes, but totals and buttons are updated.
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
    EXPECT_FALSE(isEnabled("markAll"));
    delegate->marking().collectionViewCheckButtonCLicked(-1);
    delegate->marking().collectionViewCheckButtonCLicked(99);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
}

TEST_F(Marking, LeavesSelectionAndExpansionAlone) {
    select(0, 1);
    outline().collapse(tree().indexOfExtension(1));
    clickFileBox(1);
    clickBox(tree().indexOfSet(0, 0));
    click("unMarkAll");
    EXPECT_EQ(delegate->results().selected().row(), 1);
    EXPECT_TRUE(outline().isExpanded(tree().indexOfExtension(0)));
    EXPECT_FALSE(outline().isExpanded(tree().indexOfExtension(1)));
    EXPECT_EQ(list().rowCount(), 3);
}

TEST_F(Marking, ShowsAndHidesItsOtherAlert) {
    delegate->marking().showAllCheckAlert();
    EXPECT_TRUE(window().allCheckAlertView->isVisible());
    EXPECT_EQ(positionOf(window().allCheckAlertView), QPoint(275, 225));
    click("allCheckOk");
    EXPECT_FALSE(window().allCheckAlertView->isVisible());
}

TEST_F(Marking, IsClearedByEachChangeOfView) {
    click("markAll");
    click("imageButton");
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    EXPECT_EQ(marks(0, 1), (Marks{false, false, false}));
    EXPECT_FALSE(isEnabled("imageButton"));
    EXPECT_TRUE(isEnabled("allButton"));
}

TEST_F(Marking, MakesTheHomeButtonOpaque) {
    window().results->buttonHomePage->setAlpha(0.3);
    click("markAll");
    EXPECT_EQ(window().results->buttonHomePage->alpha(), 1.0);
}

TEST_F(Marking, OfOtherThanIdenticalFilesLeavesItsButtonsAlone) {
    delegate->session().exact = false;
    window().results->allButton->setEnabled(true);
    window().results->imageButton->setEnabled(false);
    click("markAll");
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
    EXPECT_TRUE(isEnabled("markAll"));
    EXPECT_FALSE(isEnabled("unMarkAll"));
    EXPECT_FALSE(isEnabled("addEceptionBtn"));
    // Those of the views are updated.
    EXPECT_FALSE(isEnabled("allButton"));
    EXPECT_TRUE(isEnabled("imageButton"));
}

TEST_F(Marking, OfAFileThatHasVanishedCountsAsAny) {
    select(0, 1);
    std::filesystem::remove(found("b2.jpg"));
    clickFileBox(1);
    EXPECT_EQ(marks(0, 1), (Marks{false, true, false}));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 1");
    EXPECT_EQ(delegate->session().totalSize, 5U);
    EXPECT_EQ(information(), Lines());
    clickFileBox(1);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
}

class MarkingNothing : public ResultFixture {};

TEST_F(MarkingNothing, AResultWithoutExtensionsDisablesFiveButtons) {
    write("a.jpg", "one");
    write("b.jpg", "another");
    launch({folder.makeFolder("found")});
    const ResultScreen& screens = *window().results;
    screens.deletePermanently->setEnabled(true);
    screens.videoButton->setEnabled(false);
    click("findDuplicateExact");
    ASSERT_TRUE(comesTo("4"));
    for (const char* name : {"markAll", "unMarkAll", "addEceptionBtn", "sortPopupBtn"}) {
        EXPECT_FALSE(isEnabled(name)) << name;
    }
    EXPECT_FALSE(screens.sendToRecycle->isEnabled());
    // These are unchanged.
    EXPECT_TRUE(screens.deletePermanently->isEnabled());
    EXPECT_FALSE(screens.videoButton->isEnabled());
    for (const char* name : {"allButton", "imageButton", "audioButton", "documentButton"}) {
        EXPECT_TRUE(isEnabled(name)) << name;
    }
}

/// Another thread changes the marks of lists.
class MarkingAside : public Marking {
 protected:
    void SetUp() override {
        Marking::SetUp();
        delegate->results().setMarkedAsideFrom(0);
    }

    [[nodiscard]] bool isMarking() { return delegate->results().isMarking(); }
    [[nodiscard]] bool ends() {
        return comesTrue([this] { return !isMarking(); });
    }
    [[nodiscard]] Qt::CheckState boxOfExtension(int row) {
        return static_cast<Qt::CheckState>(
            tree().indexOfExtension(row).data(Qt::CheckStateRole).toInt());
    }
};

TEST_F(MarkingAside, IsSeenOnceItHasEnded) {
    EXPECT_EQ(boxOfExtension(0), Qt::Unchecked);
    click("markAll");
    EXPECT_TRUE(isMarking());
    EXPECT_EQ(boxOfExtension(0), Qt::Unchecked);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    EXPECT_FALSE(isEnabled("unMarkAll"));
    ASSERT_TRUE(ends());
    EXPECT_EQ(boxOfExtension(0), Qt::Checked);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
    EXPECT_FALSE(isEnabled("markAll"));
    EXPECT_TRUE(isEnabled("unMarkAll"));
    EXPECT_EQ(marks(0, 1), (Marks{false, true, true}));
}

TEST_F(MarkingAside, EndsBeforeAPressOfAButton) {
    click("markAll");
    ASSERT_TRUE(isMarking());
    // Enabled by the end of the first.
    QTest::mouseClick(control("unMarkAll"), Qt::LeftButton);
    ASSERT_TRUE(ends());
    EXPECT_EQ(marks(0, 1), (Marks{false, false, false}));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
}

TEST_F(MarkingAside, EndsBeforeADeletionBegins) {
    click("markAll");
    ASSERT_TRUE(isMarking());
    delegate->deletion().deleteButtonExactPageClicked();
    ASSERT_TRUE(comesTrue([this] { return window().informationWindow->isVisible(); }));
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 4");
    EXPECT_TRUE(isThere("b1.jpg"));
    EXPECT_FALSE(isThere("b2.jpg"));
}

TEST_F(MarkingAside, OfATabIsSeenAtOnce) {
    click("markAll");
    ASSERT_TRUE(ends());
    click("imageButton");
    EXPECT_TRUE(isMarking());
    EXPECT_EQ(boxOfExtension(0), Qt::Unchecked);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    EXPECT_EQ(names(), (Lines{"a1.jpg", "a2.jpg"}));
    ASSERT_TRUE(ends());
    EXPECT_EQ(boxOfExtension(0), Qt::Unchecked);
    EXPECT_EQ(marks(0, 1), (Marks{false, false, false}));
    EXPECT_FALSE(isEnabled("imageButton"));
    EXPECT_TRUE(isEnabled("allButton"));
    EXPECT_TRUE(isEnabled("markAll"));
    EXPECT_FALSE(isEnabled("unMarkAll"));
}

TEST_F(MarkingAside, EndsBeforeTheProgram) {
    click("markAll");
    ASSERT_TRUE(isMarking());
    delegate.reset();
    EXPECT_TRUE(isThere("b2.jpg"));
}

}  // namespace
}  // namespace tarvin
