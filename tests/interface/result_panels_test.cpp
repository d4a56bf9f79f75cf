#include "interface/result_panels.h"

#include "controls/button_hover_simple.h"
#include "controls/button_settings_saved.h"
#include "controls/hover_button.h"
#include "controls/progress_bar.h"
#include "controls/tab_button.h"
#include "controls/view_transparent.h"
#include "interface/notice_panel.h"
#include "interface/picture_view.h"
#include "interface/result_screen.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"
#include "interface/text_block.h"
#include "interface/window_covers.h"

#include <QLabel>
#include <QSignalSpy>

namespace tarvin {

namespace {

class ResultPanelsTest : public ShownWindow {
 protected:
    ResultPanelsTest() {
        screen.OView2->setModel(&result.sets);
        screen.OView2->expandAll();
        screen.resultTable->setModel(&result.files);
        window.selectTabViewItem(screen.identifier());
    }
    ~ResultPanelsTest() override {
        screen.OView2->setModel(nullptr);
        screen.resultTable->setModel(nullptr);
    }

    [[nodiscard]] QVector<ViewTransparent*> covers() const {
        return window.findChildren<ViewTransparent*>();
    }
    /// The widget at a point of the window.
    [[nodiscard]] QWidget* under(const QPoint& position) const { return window.childAt(position); }

    void inform(const QStringList& lines) {
        information.scanInfoCount->setText(lines.value(0));
        information.scanInfoSize->setText(lines.value(1));
        information.scanOtherInfo->setText(lines.value(2));
        window.showOver(&information, {250, 200});
        QCoreApplication::sendPostedEvents();
    }

    DrawnResult result{true};
    ResultScreen& screen = *window.results;
    InformationPanel& information = *window.informationWindow;
    ExceptionPanel& exception = *window.exceptionWindow;
    DeletionPanel& deletion = *window.deletionPreview;
};

TEST_F(ResultPanelsTest, AreHiddenAtFirst) {
    for (const char* name :
         {"informationWindow", "exceptionWindow", "deletionPreview", "allCheckAlertView"}) {
        EXPECT_FALSE(control(name)->isVisible()) << name;
    }
    EXPECT_TRUE(covers().isEmpty());
}

TEST_F(ResultPanelsTest, TheInformationHasTheGeometryOfTheDesign) {
    inform(
        {QStringLiteral("Media: 13"), QStringLiteral("Documents: 3"), QStringLiteral("Others: 3")});
    EXPECT_EQ(geometryOf(&information), QRect(250, 141, 516, 190));
    EXPECT_EQ(geometryOf(information.scanInfoImage), QRect(274, 209, 96, 96));
    EXPECT_EQ(geometryOf(information.scanInfoCount), QRect(394, 199, 348, 24));
    EXPECT_EQ(geometryOf(information.scanInfoSize), QRect(394, 223, 348, 24));
    EXPECT_EQ(geometryOf(information.scanOtherInfo), QRect(394, 247, 348, 24));
    EXPECT_EQ(geometryOf(information.scanInforOKBtn), QRect(622, 281, 120, 34));

    resizeTo({1400, 900});
    EXPECT_EQ(geometryOf(&information), QRect(442, 326, 516, 190));
}

TEST_F(ResultPanelsTest, AnEmptyLineTakesNoSpaceAndTheFirstMayHoldTwo) {
    inform({QStringLiteral("\nSuccessfully added 12 files to exceptions."), QString(),
            QStringLiteral("last")});
    EXPECT_EQ(information.scanInfoCount->height(), 48);
    EXPECT_EQ(information.scanInfoSize->height(), 0);
    EXPECT_EQ(information.scanOtherInfo->y(), information.scanInfoCount->geometry().bottom() + 1);
    EXPECT_EQ(information.height(), 190);
}

TEST_F(ResultPanelsTest, OtherLinesAreFollowedWhileItIsShown) {
    inform({QStringLiteral("one")});
    information.scanInfoSize->setText(QStringLiteral("two"));
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return information.scanInfoSize->height() == 24; }, 20000));
}

TEST_F(ResultPanelsTest, ALongTextMakesThePanelTaller) {
    inform({QString(300, QLatin1Char('m'))});
    EXPECT_GT(information.height(), 190);
    EXPECT_EQ(geometryOf(&information).bottom() + 1, 531 - 200);
    EXPECT_LE(information.scanInfoCount->geometry().bottom(), information.scanInforOKBtn->y());
    information.hide();

    exception.exceptionTextField->setText(QString(300, QLatin1Char('m')));
    window.showOver(&exception, {300, 200});
    EXPECT_GT(exception.height(), 190);
    EXPECT_LE(exception.exceptionTextField->heightForWidth(368),
              exception.exceptionTextField->height());
}

TEST_F(ResultPanelsTest, AMissingImageLeavesItsAreaEmpty) {
    information.scanInfoImage->setPictureName(QStringLiteral("nowhere"));
    inform({QStringLiteral("one")});
    const QImage image = information.grab().toImage();
    EXPECT_EQ(image.pixelColor(information.scanInfoImage->geometry().center()),
              QColor(255, 255, 255));
    information.scanInfoImage->setPictureName(QStringLiteral("common_info"));
    EXPECT_NE(information.grab().toImage(), image);
}

TEST_F(ResultPanelsTest, TheExceptionQuestionHasTheGeometryOfTheDesign) {
    window.showOver(&exception, {300, 200});
    EXPECT_EQ(geometryOf(&exception), QRect(300, 141, 416, 190));
    EXPECT_EQ(geometryOf(exception.exceptionTextField), QRect(324, 203, 368, 66));
    EXPECT_EQ(geometryOf(exception.excCancelBtn), QRect(476, 281, 104, 34));
    EXPECT_EQ(geometryOf(exception.excOKBtn), QRect(588, 281, 104, 34));
}

TEST_F(ResultPanelsTest, TheDeletionHasTheGeometryOfTheDesign) {
    window.showOver(&deletion, {205, 114});
    EXPECT_EQ(geometryOf(&deletion), QRect(205, 114, 606, 303));
    EXPECT_EQ(geometryOf(deletion.deletionIndicator), QRect(381, 252, 396, 10));
    EXPECT_EQ(geometryOf(deletion.pauseResumeBtn), QRect(547, 366, 112, 36));
    EXPECT_EQ(geometryOf(deletion.stopDeleteBtn), QRect(671, 366, 108, 36));
    // One line of 22 at 104, or two above the bar.
    EXPECT_EQ(geometryOf(deletion.deletionStatus).bottom() + 1, 114 + 104 + 22);
    EXPECT_EQ(geometryOf(deletion.deletionStatus).left(), 205 + 176);
}

TEST_F(ResultPanelsTest, TheAlternativeNoticeHasTheGeometryOfTheDesign) {
    window.showOver(window.allCheckAlertView, {275, 225});
    EXPECT_EQ(geometryOf(window.allCheckAlertView), QRect(275, 166, 466, 140));
    EXPECT_EQ(window.focusWidget(), window.allCheckOk);
}

TEST_F(ResultPanelsTest, ACoverCoversEverythingAndGrows) {
    window.showOver(&information, {250, 200});
    ASSERT_EQ(covers().size(), 1);
    EXPECT_EQ(covers().front()->geometry(), QRect(0, 0, 1016, 531));
    EXPECT_EQ(under({950, 20}), covers().front());  // Help
    EXPECT_EQ(under({20, 20}), covers().front());   // home
    EXPECT_EQ(under({50, 500}), covers().front());  // Mark All
    EXPECT_EQ(under({260, 250}), &information);

    resizeTo({1400, 900});
    EXPECT_EQ(covers().front()->geometry(), QRect(0, 0, 1400, 900));
    EXPECT_EQ(under({1390, 890}), covers().front());
}

TEST_F(ResultPanelsTest, ClicksOutsideReachNothing) {
    window.showOver(&information, {250, 200});
    QVector<QSignalSpy*> spies;
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
        if (!information.isAncestorOf(button)) {
            spies.push_back(new QSignalSpy(button, &QAbstractButton::clicked));
        }
    }
    const QSignalSpy boxes(screen.OView2, &ResultTreeView::checkBoxClicked);
    for (int x = 4; x < window.width(); x += 16) {
        for (int y = 4; y < window.height(); y += 16) {
            if (!information.geometry().contains(x, y)) {
                QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {x, y});
            }
        }
    }
    for (const QSignalSpy* spy : spies) {
        EXPECT_EQ(spy->size(), 0);
    }
    EXPECT_EQ(boxes.size(), 0);
    EXPECT_FALSE(screen.OView2->selectedSet().isValid());
    EXPECT_EQ(window.focusWidget(), information.scanInforOKBtn);
    qDeleteAll(spies);
}

TEST_F(ResultPanelsTest, CoversAreTakenAwayAllOrTheFirst) {
    window.showOver(&deletion, {205, 114});
    window.showOver(&exception, {300, 200});
    window.showOver(&information, {250, 200});
    const QVector<ViewTransparent*> three = covers();
    ASSERT_EQ(three.size(), 3);
    // The first one counts the two added after it.
    EXPECT_EQ(three[0]->viewsOverlaidCount() + three[1]->viewsOverlaidCount() +
                  three[2]->viewsOverlaidCount(),
              3);

    window.covers().removeFirst();
    EXPECT_EQ(covers().size(), 2);
    EXPECT_TRUE(information.isVisible());

    window.covers().removeAll();
    EXPECT_TRUE(covers().isEmpty());
    EXPECT_TRUE(information.isVisible());

    window.covers().removeFirst();
    window.covers().removeAll();
    EXPECT_TRUE(covers().isEmpty());
}

TEST_F(ResultPanelsTest, ARemovedCoverNotifiesTheOthers) {
    window.showOver(&deletion, {205, 114});
    ViewTransparent* first = covers().front();
    window.showOver(&information, {250, 200});
    EXPECT_EQ(first->viewsOverlaidCount(), 1);
    window.covers().removeFirst();
    window.covers().removeFirst();
    EXPECT_TRUE(covers().isEmpty());
}

TEST_F(ResultPanelsTest, TheScreenWorksAgainWithoutCovers) {
    window.showOver(&information, {250, 200});
    information.hide();
    window.covers().removeAll();
    const QSignalSpy marked(screen.markAll, &QAbstractButton::clicked);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {50, 500});
    EXPECT_EQ(marked.size(), 1);
}

TEST_F(ResultPanelsTest, TheAnswerHasTheFocusAndTabStaysInside) {
    window.showOver(&exception, {300, 200});
    EXPECT_EQ(window.focusWidget(), exception.excOKBtn);
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), exception.excCancelBtn);
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), exception.excOKBtn);
    QTest::keyClick(window.focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(window.focusWidget(), exception.excCancelBtn);
}

TEST_F(ResultPanelsTest, EscActivatesTheSafeAnswer) {
    const QSignalSpy ok(exception.excOKBtn, &QAbstractButton::clicked);
    const QSignalSpy cancel(exception.excCancelBtn, &QAbstractButton::clicked);
    window.showOver(&exception, {300, 200});
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(cancel.size(), 1);
    EXPECT_EQ(ok.size(), 0);
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(ok.size(), 1);
    exception.hide();

    const QSignalSpy review(information.scanInforOKBtn, &QAbstractButton::clicked);
    window.showOver(&information, {250, 200});
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(review.size(), 1);
}

TEST_F(ResultPanelsTest, EscStopsNoDeletion) {
    const QSignalSpy paused(deletion.pauseResumeBtn, &QAbstractButton::clicked);
    const QSignalSpy stopped(deletion.stopDeleteBtn, &QAbstractButton::clicked);
    window.showOver(&deletion, {205, 114});
    EXPECT_EQ(window.focusWidget(), deletion.pauseResumeBtn);
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(paused.size() + stopped.size(), 0);
    EXPECT_TRUE(deletion.isVisible());
}

TEST_F(ResultPanelsTest, PauseAndStopHaveTheirKeysWhileADeletionRuns) {
    const QSignalSpy paused(deletion.pauseResumeBtn, &QAbstractButton::clicked);
    const QSignalSpy stopped(deletion.stopDeleteBtn, &QAbstractButton::clicked);
    window.showOver(&deletion, {205, 114});
    QTest::keyClick(window.focusWidget(), Qt::Key_P, Qt::ControlModifier);
    QTest::keyClick(window.focusWidget(), Qt::Key_Period, Qt::ControlModifier);
    EXPECT_EQ(paused.size(), 1);
    EXPECT_EQ(stopped.size(), 1);

    deletion.hide();
    window.covers().removeAll();
    QTest::keyClick(window.focusWidget(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(paused.size(), 1);
}

TEST_F(ResultPanelsTest, TheFocusStaysInsideWhenAButtonIsDisabled) {
    window.showOver(&deletion, {205, 114});
    deletion.pauseResumeBtn->setEnabled(false);
    EXPECT_EQ(window.focusWidget(), deletion.stopDeleteBtn);
}

TEST_F(ResultPanelsTest, ShortcutsOfTheScreenAreDisabledMeanwhile) {
    const QSignalSpy marked(screen.markAll, &QAbstractButton::clicked);
    const QSignalSpy chosen(screen.imageButton, &QAbstractButton::clicked);
    const QSignalSpy deleted(screen.finishButton, &QAbstractButton::clicked);
    const auto pressAll = [this] {
        QTest::keyClick(window.focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(window.focusWidget(), Qt::Key_2, Qt::ControlModifier);
        QTest::keyClick(window.focusWidget(), Qt::Key_Backspace, Qt::ControlModifier);
    };
    window.showOver(&information, {250, 200});
    pressAll();
    EXPECT_EQ(marked.size() + chosen.size() + deleted.size(), 0);
    information.hide();
    window.covers().removeAll();
    pressAll();
    EXPECT_EQ(marked.size(), 1);
    EXPECT_EQ(chosen.size(), 1);
    EXPECT_EQ(deleted.size(), 1);
}

TEST_F(ResultPanelsTest, TheFocusReturnsToTheTree) {
    screen.OView2->setFocus();
    window.showOver(&information, {250, 200});
    information.hide();
    EXPECT_EQ(window.focusWidget(), screen.OView2);
}

TEST_F(ResultPanelsTest, TheFocusIsInTheListAgainAfterADeletion) {
    ASSERT_TRUE(screen.resultTable->hasFocus());
    screen.buttonHomePage->hide();
    window.showOver(&deletion, {205, 114});
    screen.resultTable->hide();
    EXPECT_EQ(window.focusWidget(), deletion.pauseResumeBtn);

    deletion.hide();
    window.covers().removeAll();
    screen.buttonHomePage->show();
    screen.resultTable->show();

    EXPECT_EQ(window.focusWidget(), screen.resultTable);
    EXPECT_TRUE(screen.resultTable->hasFocus());
}

TEST_F(ResultPanelsTest, TheDeletionBarHasItsNameAndLight) {
    EXPECT_EQ(deletion.deletionIndicator->accessibleName(), QStringLiteral("Deletion progress"));
    EXPECT_TRUE(deletion.deletionIndicator->hasSheen());
    EXPECT_FALSE(deletion.deletionIndicator->clock().isRunning());
    window.showOver(&deletion, {205, 114});
    EXPECT_TRUE(deletion.deletionIndicator->clock().isRunning());
}

}  // namespace

}  // namespace tarvin
