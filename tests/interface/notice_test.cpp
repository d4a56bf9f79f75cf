#include "controls/button_settings_saved.h"
#include "controls/focus_ring.h"
#include "controls/hover_button.h"
#include "controls/view_settings_saved.h"
#include "interface/about_panel.h"
#include "interface/notice_panel.h"
#include "interface/progress_screen.h"
#include "interface/shown_window.h"
#include "interface/text_block.h"
#include "interface/window_covers.h"

#include <QLabel>
#include <QSignalSpy>
#include <QWindow>

namespace tarvin {

namespace {

class NoticeTest : public ShownWindow {
 protected:
    void ask() {
        window.selectTabViewItem(QStringLiteral("5"));
        window.showNotice(window.confirmationView, {350, 235});
    }

    /// The cursor of the window after the pointer has entered a control.
    Qt::CursorShape cursorOver(const QWidget* control) {
        const QPoint position = geometryOf(control).center();
        QCursor::setPos(window.mapToGlobal(position));
        QCoreApplication::processEvents();
        QTest::mouseMove(window.windowHandle(), position);
        QCoreApplication::processEvents();
        return window.windowHandle()->cursor().shape();
    }
};

TEST_F(NoticeTest, PanelsAreHiddenAtFirst) {
    for (const char* name : {"runningAlert", "confirmationView", "windowAboutPanel",
                             "settingsWindow", "progressWindow", "loadingView"}) {
        EXPECT_FALSE(control(name)->isVisible()) << name;
    }
}

TEST_F(NoticeTest, NoticesAreSettingsPanels) {
    EXPECT_NE(control<ViewSettingsSaved>("runningAlert"), nullptr);
    EXPECT_NE(control<ViewSettingsSaved>("confirmationView"), nullptr);
    EXPECT_NE(control<ButtonSettingsSaved>("runningAlertOk"), nullptr);
    EXPECT_NE(control<ButtonSettingsSaved>("cancelYes"), nullptr);
    EXPECT_NE(control<ButtonSettingsSaved>("cancelNo"), nullptr);
}

TEST_F(NoticeTest, TheQuestionHasTheGeometryOfTheDesign) {
    ask();

    EXPECT_EQ(geometryOf(window.confirmationView), QRect(350, 156, 316, 140));
    EXPECT_EQ(geometryOf(window.cancelYes), QRect(472, 259, 84, 27));
    EXPECT_EQ(geometryOf(window.cancelNo), QRect(566, 259, 84, 27));

    resizeTo({1400, 900});
    EXPECT_EQ(geometryOf(window.confirmationView), QRect(542, 341, 316, 140));
}

TEST_F(NoticeTest, TheNoticeOfTheListIsInItsArea) {
    window.selectTabViewItem(QStringLiteral("2"));
    window.runningAlertText->setText(QStringLiteral("File already added."));
    window.showNoticeInList(window.runningAlert, {220, 50});

    EXPECT_EQ(geometryOf(window.runningAlert), QRect(275, 184, 466, 140));
    EXPECT_EQ(geometryOf(window.runningAlertText), QRect(292, 210, 432, 68));
    EXPECT_EQ(geometryOf(window.runningAlertOk), QRect(641, 287, 84, 27));
}

TEST_F(NoticeTest, TheNoticeOfClosingIsOverTheScan) {
    window.selectTabViewItem(QStringLiteral("5"));
    window.showNotice(window.runningAlert, {275, 225});
    EXPECT_EQ(geometryOf(window.runningAlert), QRect(275, 166, 466, 140));

    resizeTo({1400, 900});
    EXPECT_EQ(geometryOf(window.runningAlert), QRect(467, 351, 466, 140));
}

TEST_F(NoticeTest, AnswersShowAHand) {
    for (const ButtonSettingsSaved* answer :
         {window.runningAlertOk, window.cancelYes, window.cancelNo, window.allCheckOk}) {
        EXPECT_EQ(answer->cursor().shape(), Qt::PointingHandCursor)
            << answer->objectName().toStdString();
    }
    window.selectTabViewItem(QStringLiteral("2"));
    window.showNoticeInList(window.runningAlert, {220, 50});
    EXPECT_EQ(cursorOver(window.runningAlertText), Qt::ArrowCursor);
    EXPECT_EQ(cursorOver(window.runningAlertOk), Qt::PointingHandCursor);
}

TEST_F(NoticeTest, AnswersBelowACoverShowNoHand) {
    QWidget panel(&window);
    window.showOver(&panel, {250, 200});
    window.showOver(&panel, {250, 200});
    EXPECT_NE(window.runningAlertOk->cursor().shape(), Qt::PointingHandCursor);
    window.covers().removeFirst();
    EXPECT_NE(window.runningAlertOk->cursor().shape(), Qt::PointingHandCursor);
    window.covers().removeAll();
    EXPECT_EQ(window.runningAlertOk->cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(NoticeTest, ALongTextMakesTheNoticeTaller) {
    window.runningAlertText->setText(QString(600, QLatin1Char('m')));
    window.showNotice(window.runningAlert, {275, 225});

    EXPECT_GT(window.runningAlert->height(), 140);
    EXPECT_GE(window.runningAlertText->height(),
              window.runningAlertText->heightForWidth(window.runningAlertText->width()));
    EXPECT_EQ(geometryOf(window.runningAlert).bottom() + 1, 531 - 225);
}

TEST_F(NoticeTest, TheSafeAnswerHasTheFocus) {
    ask();
    EXPECT_EQ(window.focusWidget(), window.cancelNo);
}

TEST_F(NoticeTest, TabStaysInside) {
    ask();
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), window.cancelYes);
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), window.cancelNo);
    QTest::keyClick(window.focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(window.focusWidget(), window.cancelYes);
}

TEST_F(NoticeTest, EscActivatesTheSafeAnswer) {
    ask();
    const QSignalSpy no(window.cancelNo, &QAbstractButton::clicked);
    const QSignalSpy yes(window.cancelYes, &QAbstractButton::clicked);
    window.cancelYes->setFocus();

    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);

    EXPECT_EQ(no.size(), 1);
    EXPECT_EQ(yes.size(), 0);
}

TEST_F(NoticeTest, EscActivatesAnOnlyAnswer) {
    window.showNotice(window.runningAlert, {275, 225});
    const QSignalSpy ok(window.runningAlertOk, &QAbstractButton::clicked);

    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);

    EXPECT_EQ(ok.size(), 1);
}

TEST_F(NoticeTest, ReturnActivatesTheFocusedAnswer) {
    window.selectTabViewItem(QStringLiteral("2"));
    window.showNoticeInList(window.runningAlert, {220, 50});
    const QSignalSpy ok(window.runningAlertOk, &QAbstractButton::clicked);
    const QSignalSpy scans(window.locations->findDuplicateExact, &QAbstractButton::clicked);

    QTest::keyClick(window.focusWidget(), Qt::Key_Return);

    EXPECT_EQ(ok.size(), 1);
    EXPECT_EQ(scans.size(), 0);
}

TEST_F(NoticeTest, AClickOutsideDoesNotMoveTheFocus) {
    ask();
    const QSignalSpy clicks(window.progress->stopButton, &QAbstractButton::clicked);

    QTest::mouseClick(window.progress->stopButton, Qt::LeftButton);

    EXPECT_EQ(clicks.size(), 1);
    EXPECT_EQ(window.focusWidget(), window.cancelNo);
}

TEST_F(NoticeTest, ShortcutsOfTheScreenAreDisabledMeanwhile) {
    ask();
    const QSignalSpy clicks(window.progress->pauseResume, &QAbstractButton::clicked);

    QTest::keyClick(window.focusWidget(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(clicks.size(), 0);

    window.confirmationView->hide();
    QTest::keyClick(window.focusWidget(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(NoticeTest, TheFocusReturnsToItsFormerControl) {
    window.selectTabViewItem(QStringLiteral("5"));
    window.progress->stopButton->setFocus();
    window.showNotice(window.confirmationView, {350, 235});

    window.confirmationView->hide();

    EXPECT_EQ(window.focusWidget(), window.progress->stopButton);
}

TEST_F(NoticeTest, TheFocusGoesToTheFirstControlIfItCannotReturn) {
    window.selectTabViewItem(QStringLiteral("5"));
    window.progress->stopButton->setFocus();
    window.showNotice(window.confirmationView, {350, 235});
    window.progress->stopButton->setEnabled(false);

    window.confirmationView->hide();

    EXPECT_EQ(window.focusWidget(), window.progress->pauseResume);
}

TEST_F(NoticeTest, ANoticeOverAQuestionReturnsTheFocusToIt) {
    ask();
    window.showNotice(window.runningAlert, {275, 225});
    EXPECT_EQ(window.focusWidget(), window.runningAlertOk);

    window.runningAlert->hide();

    EXPECT_EQ(window.focusWidget(), window.cancelNo);
}

TEST_F(NoticeTest, AboutIsCentred) {
    window.showAbout();

    EXPECT_EQ(geometryOf(window.windowAboutPanel), QRect(298, 120, 420, 288));
    resizeTo({1400, 900});
    EXPECT_EQ(geometryOf(window.windowAboutPanel), QRect(490, 305, 420, 288));
}

TEST_F(NoticeTest, TheFocusRingOfTheCrossOfAboutIsInsideIt) {
    window.showAbout();
    window.windowAboutPanel->closeButton->setFocus(Qt::TabFocusReason);
    window.windowAboutPanel->closeButton->clearFocus();
    window.windowAboutPanel->closeButton->setFocus(Qt::TabFocusReason);

    const auto* ring = window.windowAboutPanel->findChild<FocusRing*>();
    ASSERT_NE(ring, nullptr);
    EXPECT_TRUE(ring->isVisible());
    EXPECT_EQ(ring->geometry(), QRect(393, 3, 24, 23));
}

TEST_F(NoticeTest, AboutClosesByItsCrossAndByEsc) {
    window.showAbout();
    EXPECT_EQ(window.focusWidget(), window.windowAboutPanel->closeButton);
    QTest::mouseClick(window.windowAboutPanel->closeButton, Qt::LeftButton);
    EXPECT_FALSE(window.windowAboutPanel->isVisible());

    window.showAbout();
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(window.windowAboutPanel->isVisible());
    EXPECT_EQ(window.focusWidget()->objectName(), QStringLiteral("mainScanButton"));
}

}  // namespace

}  // namespace tarvin
