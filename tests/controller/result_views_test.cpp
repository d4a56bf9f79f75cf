#include "controller/result_fixture.h"
#include "controller/visibility_counter.h"
#include "controls/tab_button.h"
#include "controls/view_transparent.h"
#include "interface/image_view.h"
#include "interface/picture_view.h"
#include "interface/property_text.h"

#include <QSignalSpy>
#include <array>

namespace tarvin {
namespace {

class Views : public ResultFixture {
 protected:
    /// A set in each category, written in another order than shown.
    void writeEachCategory() {
        for (const char* name : {"a.bin1", "b.doc", "c.mp3", "d.mp4", "e.jpg"}) {
            write(std::string("1") + name, std::string("content of ") + name);
            write(std::string("2") + name, std::string("content of ") + name);
        }
    }

    [[nodiscard]] Lines extensions() {
        Lines names;
        for (int row = 0; row < tree().rowCount(); ++row) {
            names.push_back(tree()
                                .indexOfExtension(row)
                                .siblingAtColumn(ResultTreeView::name)
                                .data()
                                .toString()
                                .toStdString());
        }
        return names;
    }

    /// The flags of the views, in the order of their buttons.
    [[nodiscard]] std::array<bool, 6> flags() {
        const ViewFlags& tabs = delegate->results().tabs();
        return {tabs.allTab,   tabs.imageTab, tabs.videoTab,
                tabs.audioTab, tabs.docsTab,  tabs.othrTab};
    }

    static std::array<bool, 6> onlyFlag(std::size_t view) {
        std::array<bool, 6> flags{};
        flags.at(view) = true;
        return flags;
    }

    void setAlphas(double alpha) {
        for (const char* name : buttons) {
            control<TabButton>(name)->setAlpha(alpha);
        }
    }

    /// The alpha of each button but one is 1; that of the one is unchanged.
    void expectAlphasBehind(std::size_t view, double alpha) {
        for (std::size_t other = 0; other < buttons.size(); ++other) {
            EXPECT_EQ(control<TabButton>(buttons.at(other))->alpha(), other == view ? alpha : 1.0)
                << buttons.at(view) << ' ' << buttons.at(other);
        }
    }

    static constexpr std::array<const char*, 6> buttons{
        "allButton", "imageButton", "videoButton", "audioButton", "documentButton", "otherButton"};
    static constexpr std::array<const char*, 6> titles{"",      "Image",     "Video",
                                                       "Audio", "Documents", "Other"};

    [[nodiscard]] std::size_t covers() {
        return static_cast<std::size_t>(window().findChildren<ViewTransparent*>().size());
    }
};

TEST_F(Views, BeginWithTheSummaryOfAllCategories) {
    writeEachCategory();
    scan();
    EXPECT_EQ(information(), (Lines{"Duplicates Found", "Media: 3", "Documents: 1", "Others: 1"}));
    EXPECT_EQ(window().informationWindow->scanInforOKBtn->title(), QStringLiteral("Review"));
    EXPECT_EQ(covers(), 1U);
    click("scanInforOKBtn");
    EXPECT_EQ(information(), Lines());
    EXPECT_EQ(covers(), 0U);
    EXPECT_EQ(extensions(), (Lines{"jpg", "mp4", "mp3", "doc", "bin1"}));
    EXPECT_FALSE(isEnabled("allButton"));
    for (const char* name :
         {"imageButton", "videoButton", "audioButton", "documentButton", "otherButton"}) {
        EXPECT_TRUE(isEnabled(name)) << name;
    }
}

TEST_F(Views, ShowTheirSummaryOnceAndAgainAfterHome) {
    writeEachCategory();
    scanAndReview();
    click("imageButton");
    EXPECT_EQ(information(),
              (Lines{"Information", "Image Duplicates: 1", "Memory Occupied: 0.02 KB", ""}));
    click("scanInforOKBtn");
    EXPECT_EQ(extensions(), Lines{"jpg"});
    click("allButton");
    EXPECT_EQ(information(), Lines());
    click("imageButton");
    EXPECT_EQ(information(), Lines());
    click("buttonHomePage");
    delegate->locations().openWith({folder.pathOf("found")});
    click("findDuplicateExact");
    ASSERT_TRUE(comesTo("4"));
    EXPECT_EQ(information()[0], "Duplicates Found");
}

TEST_F(Views, OfEachCategoryShowItsOwn) {
    writeEachCategory();
    scanAndReview();
    EXPECT_EQ(flags(), onlyFlag(0));
    const std::array<const char*, 6> names{"", "jpg", "mp4", "mp3", "doc", "bin1"};
    for (std::size_t view = 1; view < buttons.size(); ++view) {
        click(buttons.at(view));
        EXPECT_EQ(information()[1], std::string(titles.at(view)) + " Duplicates: 1");
        click("scanInforOKBtn");
        EXPECT_EQ(extensions(), Lines{names.at(view)});
        EXPECT_FALSE(isEnabled(buttons.at(view)));
        EXPECT_TRUE(isEnabled("allButton"));
        EXPECT_EQ(flags(), onlyFlag(view));
    }
    click("allButton");
    EXPECT_EQ(extensions().size(), 5U);
    EXPECT_EQ(flags(), onlyFlag(0));
}

TEST_F(Views, OfAllCategoriesStandInOrderAgain) {
    writeEachCategory();
    scanAndReview();
    for (const char* tab : {"otherButton", "imageButton"}) {
        click(tab);
        click("scanInforOKBtn");
        ASSERT_EQ(extensions().size(), 1U);
        click("allButton");
        EXPECT_EQ(extensions(), (Lines{"jpg", "mp4", "mp3", "doc", "bin1"})) << tab;
    }
}

TEST_F(Views, OfAllCategoriesSumTheirTotalsAnew) {
    writeEachCategory();
    scanAndReview();
    const std::uint64_t size = modal().totalFilesSize();
    ASSERT_EQ(modal().totalFiles(), 5U);
    ASSERT_GT(size, 0U);
    click("imageButton");
    click("scanInforOKBtn");
    EXPECT_EQ(modal().totalFiles(), 1U);
    click("allButton");
    EXPECT_EQ(modal().totalFiles(), 5U);
    EXPECT_EQ(modal().totalFilesSize(), size);
    click("markAll");
    EXPECT_FALSE(isEnabled("markAll"));
}

TEST_F(Views, ClearTheMarksWhenAnotherIsChosen) {
    writeEachCategory();
    scanAndReview();
    for (const char* next : {"imageButton", "videoButton", "allButton"}) {
        click("markAll");
        ASSERT_NE(textOf("selectedCount"), "Marked Duplicate Files: 0");
        click(next);
        if (window().informationWindow->isVisible()) {
            click("scanInforOKBtn");
        }
        EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0") << next;
        EXPECT_EQ(textOf("selectedSize"), "Marked File Size: 0.00 KB") << next;
        EXPECT_FALSE(isEnabled("unMarkAll")) << next;
    }
    for (const auto& extension : modal().extensions()) {
        EXPECT_EQ(extension->extensionState(), CheckState::off);
    }
}

TEST_F(Views, GiveTheOtherTabsTheirAlphaBack) {
    writeEachCategory();
    scanAndReview();
    for (const std::size_t view : {1U, 2U, 3U, 4U, 5U, 0U}) {
        setAlphas(0.7);
        click(buttons.at(view));
        expectAlphasBehind(view, 0.7);
        if (window().informationWindow->isVisible()) {
            click("scanInforOKBtn");
        }
    }
}

TEST_F(Views, OfAnEmptyCategoryGiveTheOtherTabsTheirAlphaBack) {
    writeThreeSets();
    scanAndReview();
    setAlphas(0.7);
    click("videoButton");
    expectAlphasBehind(2, 0.7);
}

TEST_F(Views, CoverTheFilesWhileTheyAreFilled) {
    writeThreeSets();
    launch({folder.makeFolder("found")});
    const VisibilityCounter overlay(window().loadingView);
    click("findDuplicateExact");
    ASSERT_TRUE(comesTo("4"));
    EXPECT_EQ(overlay.shown(), 1);
    EXPECT_EQ(overlay.hidden(), 1);
    click("scanInforOKBtn");
    click("imageButton");
    EXPECT_EQ(overlay.shown(), 2);
    EXPECT_FALSE(isCovered());
}

TEST_F(Views, WithoutTheirSummaryKeepTheTotalsOfWhatIsMarked) {
    writeThreeSets();
    scanAndReview();
    click("markAll");
    const Lines totals{textOf("selectedCount"), textOf("selectedSize")};
    ASSERT_EQ(totals[0], "Marked Duplicate Files: 4");
    delegate->session().summaries = {};
    delegate->views().showDuplicateScanResult(false);
    EXPECT_EQ((Lines{textOf("selectedCount"), textOf("selectedSize")}), totals);
    EXPECT_EQ(information(), Lines());
    EXPECT_EQ(delegate->session().summaries, SummariesShown());
    delegate->views().showDuplicateScanResult(true);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    EXPECT_EQ(information()[0], "Duplicates Found");
}

TEST_F(Views, ShowTheFirstSetWithItsFirstFile) {
    writeThreeSets();
    scanAndReview();
    EXPECT_EQ(delegate->results().selected(), tree().indexOfSet(0, 0));
    EXPECT_EQ(list().rowCount(), 2);
    EXPECT_EQ(fileText(0, ResultTable::nameText), "a1.jpg");
    EXPECT_EQ(fileText(0, ResultTable::fileLocation), folder.pathOf("found"));
    EXPECT_EQ(fileText(0, ResultTable::fileGroup), "1");
    EXPECT_EQ(textOf("selectedPath"), "Path: " + folder.pathOf("found/a1.jpg"));
    EXPECT_EQ(table().selectedRow(), 0);
    EXPECT_FALSE(isCovered());
    EXPECT_TRUE(outline().isExpanded(tree().indexOfExtension(0)));
    EXPECT_TRUE(outline().isExpanded(tree().indexOfExtension(1)));
}

TEST_F(Views, OfASingleExtensionBeginWithoutAPreview) {
    write("a1.jpg", "one");
    write("a2.jpg", "one");
    scanAndReview();
    EXPECT_EQ(delegate->results().selected(), tree().indexOfSet(0, 0));
    EXPECT_EQ(list().rowCount(), 2);
    EXPECT_TRUE(window().results->imView->image().isNull());
    EXPECT_EQ(textOf("selectedPath"), "");
    EXPECT_EQ(window().results->textField->text(), QString());
    EXPECT_EQ(table().selectedRow(), -1);
}

class EmptyViews : public Views {
 protected:
    /// The tab of a category without duplicates shows a notice and changes nothing else; closing it
    /// shows all categories.
    void expectNothingIn(std::size_t view, const char* picture,
                         bool SummariesShown::* summaryIsShown) {
        click("markAll");
        select(0, 0);
        const Lines before{textOf("selectedCount"), textOf("selectedSize"), textOf("selectedPath")};
        ASSERT_NE(before[0], "Marked Duplicate Files: 0");
        const Lines rows = names();
        const QSignalSpy reloaded(&tree(), &QAbstractItemModel::modelReset);
        click(buttons.at(view));
        EXPECT_EQ(information(),
                  (Lines{"Information", "No " + std::string(titles.at(view)) + " Duplicates Found",
                         "", ""}));
        EXPECT_EQ(window().informationWindow->scanInforOKBtn->title(), QStringLiteral("Ok"));
        EXPECT_EQ(window().informationWindow->scanInfoImage->pictureName(), QLatin1String(picture));
        EXPECT_TRUE(delegate->session().summaries.*summaryIsShown);
        EXPECT_EQ(flags(), onlyFlag(view));
        EXPECT_EQ((Lines{textOf("selectedCount"), textOf("selectedSize"), textOf("selectedPath")}),
                  before);
        EXPECT_EQ(names(), rows);
        EXPECT_EQ(stateOfFirstSet(), CheckState::on);
        EXPECT_EQ(delegate->results().selected(), tree().indexOfSet(0, 0));
        EXPECT_EQ(reloaded.size(), 0);

        click("scanInforOKBtn");
        EXPECT_EQ(flags(), onlyFlag(0));
        EXPECT_EQ(stateOfFirstSet(), CheckState::off);
        EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
        EXPECT_EQ(reloaded.size(), 1);
        EXPECT_EQ(information(), Lines());
        EXPECT_FALSE(isEnabled("allButton"));
        EXPECT_TRUE(isEnabled(buttons.at(view)));
    }

    /// The state of the first set in the tree, which does not belong to the empty list in view.
    [[nodiscard]] CheckState stateOfFirstSet() {
        return tree().setAt(tree().indexOfSet(0, 0))->setsState();
    }

    /// Blocks the comparison of two files, equal or not.
    void beginAndHold(const std::string& second) {
        write("a.jpg", "one");
        write("b.jpg", second);
        files.beforeCall(
            FileCall::openFile, FaultyFileSystem::each, [this] { barrier.wait(); }, "found/");
        launch({folder.makeFolder("found")});
        click("findDuplicateExact");
        ASSERT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    }

    /// Finishes the comparison while another window is active.
    void endBehindAnotherWindow() {
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        window().showMinimized();
        barrier.open();
        ASSERT_TRUE(comesTo("4"));
        // The window requests have been processed.
        QCoreApplication::processEvents();
    }

    Barrier barrier;
    QWidget other;
};

TEST_F(EmptyViews, OfMediaAndOthersLeadBackToAll) {
    writeThreeSets();
    scanAndReview();
    expectNothingIn(2, "video_info", &SummariesShown::videoTabInfo);
    expectNothingIn(3, "Audio_info", &SummariesShown::audioTabInfo);
    expectNothingIn(5, "other_info", &SummariesShown::othrTabInfo);
    EXPECT_EQ(extensions(), (Lines{"jpg", "txt"}));
}

TEST_F(EmptyViews, OfImagesAndDocumentsLeadBackToAll) {
    for (const char* name : {"1.mp3", "2.mp3"}) {
        write(name, "sound");
    }
    scanAndReview();
    expectNothingIn(1, "image_info", &SummariesShown::imageTabInfo);
    expectNothingIn(4, "document_info", &SummariesShown::docsTabInfo);
}

TEST_F(EmptyViews, ShowNoSummaryTheSecondTime) {
    writeThreeSets();
    scanAndReview();
    click("videoButton");
    click("scanInforOKBtn");
    click("videoButton");
    EXPECT_EQ(information(), (Lines{"Information", "No Video Duplicates Found", "", ""}));
}

TEST_F(EmptyViews, OfAnEmptyResultLeadHome) {
    const std::string path = write("a.jpg", "one");
    write("b.jpg", "another");
    launch({folder.makeFolder("found")});
    click("findDuplicateExact");
    // From an earlier result.
    delegate->preview().showSelectedImage(path);
    delegate->preview().showSelecteImageProperty(path);
    window().results->selectedCount->setText(QStringLiteral("before"));
    window().results->selectedSize->setText(QStringLiteral("before"));
    ASSERT_FALSE(window().results->imView->image().isNull());
    ASSERT_NE(window().results->textField->text(), QString());
    ASSERT_TRUE(comesTo("4"));
    EXPECT_EQ(information(), (Lines{"Duplicates Found", "Media: 0", "Documents: 0", "Others: 0"}));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    EXPECT_EQ(textOf("selectedSize"), "Marked File Size: 0.00 KB");
    EXPECT_TRUE(window().results->imView->image().isNull());
    EXPECT_EQ(textOf("selectedPath"), "");
    EXPECT_EQ(window().results->textField->text(), QString());
    EXPECT_EQ(tree().rowCount(), 0);
    EXPECT_EQ(list().rowCount(), 0);
    EXPECT_TRUE(window().buttonHelpManual->isEnabled());
    click("scanInforOKBtn");
    EXPECT_EQ(screen(), QStringLiteral("1"));
}

TEST_F(EmptyViews, OfAnEmptyResultMayComeWithoutASummary) {
    write("a.jpg", "one");
    scan();
    click("scanInforOKBtn");
    delegate->session().totalSelected = 3;
    delegate->session().totalSize = 5;
    delegate->results().begin();
    delegate->views().showDuplicateScanResult(false);
    EXPECT_EQ(screen(), QStringLiteral("4"));
    EXPECT_EQ(information(), Lines());
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 0");
    EXPECT_EQ(textOf("selectedSize"), "Marked File Size: 0.00 KB");
}

TEST_F(EmptyViews, OfAResultBringTheWindowToTheFront) {
    beginAndHold("one");
    endBehindAnotherWindow();
    EXPECT_FALSE(window().isMinimized());
    EXPECT_TRUE(comesTrue([this] { return window().isActiveWindow(); }));
}

TEST_F(EmptyViews, OfAnEmptyResultLeaveTheWindowWhereItIs) {
    beginAndHold("two");
    endBehindAnotherWindow();
    EXPECT_EQ(information()[1], "Media: 0");
    EXPECT_TRUE(window().isMinimized());
    EXPECT_TRUE(other.isActiveWindow());
}

class ViewsWithoutAResult : public Views {
 protected:
    void SetUp() override { launch(); }

    /// The product never gets here without a result; if it did, a tab would show a notice.
    void clickTab(std::size_t view) {
        window().selectTabViewItem(QStringLiteral("4"));
        setAlphas(0.7);
        click(buttons.at(view));
        expectAlphasBehind(view, 0.7);
        EXPECT_EQ(flags(), onlyFlag(view));
        EXPECT_FALSE(delegate->results().hasResult());
    }

    void expectTheEmptySummaryThatLeadsHome() {
        EXPECT_EQ(information(),
                  (Lines{"Duplicates Found", "Media: 0", "Documents: 0", "Others: 0"}));
        EXPECT_EQ(screen(), QStringLiteral("4"));
        EXPECT_TRUE(delegate->session().summaries.allTabInfo);
        click("scanInforOKBtn");
        EXPECT_EQ(information(), Lines());
        EXPECT_EQ(screen(), QStringLiteral("1"));
        EXPECT_EQ(covers(), 0U);
    }
};

TEST_F(ViewsWithoutAResult, ShowTheSummaryOfAllCategories) {
    clickTab(0);
    expectTheEmptySummaryThatLeadsHome();
}

TEST_F(ViewsWithoutAResult, SayThatACategoryIsEmptyAndLeadToAll) {
    for (std::size_t view = 1; view < buttons.size(); ++view) {
        clickTab(view);
        EXPECT_EQ(information(),
                  (Lines{"Information", "No " + std::string(titles.at(view)) + " Duplicates Found",
                         "", ""}));
        click("scanInforOKBtn");
        EXPECT_EQ(flags(), onlyFlag(0));
        expectTheEmptySummaryThatLeadsHome();
    }
}

TEST_F(ViewsWithoutAResult, StayWhereTheyAreWhenNoneIsChosen) {
    window().selectTabViewItem(QStringLiteral("4"));
    ASSERT_FALSE(delegate->results().hasResult());
    window().showOver(window().informationWindow, {250, 200});
    click("scanInforOKBtn");
    EXPECT_EQ(screen(), QStringLiteral("4"));
    EXPECT_EQ(information(), Lines());
    EXPECT_EQ(covers(), 0U);
    EXPECT_EQ(flags(), (std::array<bool, 6>{}));
}

TEST_F(ViewsWithoutAResult, TakeACategoryThatWasNotComparedForEmpty) {
    // The state after a scan that was stopped early.
    delegate->results().begin();
    ASSERT_TRUE(delegate->results().hasResult());
    window().selectTabViewItem(QStringLiteral("4"));
    click("allButton");
    EXPECT_EQ(information(), (Lines{"Duplicates Found", "Media: 0", "Documents: 0", "Others: 0"}));
    delegate->views().imageClicked();
    EXPECT_EQ(information()[1], "No Image Duplicates Found");
    delegate->views().allClicked();
    EXPECT_EQ(flags(), onlyFlag(0));
    EXPECT_EQ(tree().rowCount(), 0);
}

}  // namespace
}  // namespace tarvin
