#include "interface/press_guard.h"

#include "controls/button_hover_complex.h"
#include "controls/button_hover_simple.h"
#include "controls/hover_button.h"
#include "interface/home_screen.h"
#include "interface/progress_screen.h"
#include "interface/result_panels.h"
#include "interface/result_screen.h"
#include "interface/shown_window.h"

#include <QSignalSpy>

namespace tarvin {

namespace {

/// A new screen appears below the pointer while the user may still be clicking.
class PressGuardTest : public ShownWindow {
 protected:
    PressGuardTest() { QApplication::setDoubleClickInterval(longInterval); }

    [[nodiscard]] QPoint middleOf(const QWidget* control) const {
        return geometryOf(control).center();
    }

    void press(const QPoint& position) {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, position);
    }

    /// Scan shows the progress screen, as it does in the product.
    void letScanShowProgress() {
        QObject::connect(window.locations->findDuplicateExact, &QAbstractButton::clicked, &window,
                         [this] { window.selectTabViewItem(QStringLiteral("5")); });
        showAndRest(QStringLiteral("2"));
    }

    /// Shows a screen and waits for the duration of a double click.
    void showAndRest(const QString& identifier) {
        QApplication::setDoubleClickInterval(0);
        window.selectTabViewItem(identifier);
        QCoreApplication::processEvents();
        QApplication::setDoubleClickInterval(longInterval);
    }

    static constexpr int longInterval = 60'000;  // more than a test takes
};

TEST_F(PressGuardTest, ADoubleClickOnScanDoesNotPressStop) {
    letScanShowProgress();
    const QPushButton& stop = *window.progress->stopButton;
    const QSignalSpy stops(&stop, &QAbstractButton::clicked);
    const QSignalSpy downs(&stop, &QAbstractButton::pressed);
    const QPoint position = middleOf(window.locations->findDuplicateExact);
    press(position);
    ASSERT_EQ(window.selectedTabViewItem(), QStringLiteral("5"));
    ASSERT_EQ(window.childAt(position), &stop);
    press(position);
    EXPECT_EQ(stops.size(), 0);
    EXPECT_EQ(downs.size(), 0);
    // Nor does it get the focus.
    EXPECT_EQ(window.focusWidget(), window.progress->pauseResume);
}

TEST_F(PressGuardTest, NothingOnANewScreenIsPressed) {
    letScanShowProgress();
    const QSignalSpy pauses(window.progress->pauseResume, &QAbstractButton::clicked);
    press(middleOf(window.locations->findDuplicateExact));
    press(middleOf(window.progress->pauseResume));
    QTest::mouseClick(window.progress->pauseResume, Qt::LeftButton);
    QTest::mouseDClick(window.progress->pauseResume, Qt::LeftButton);
    EXPECT_EQ(pauses.size(), 0);
    // The keyboard is not affected.
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    EXPECT_EQ(pauses.size(), 1);
}

TEST_F(PressGuardTest, TheBarIsGuardedToo) {
    showAndRest(QStringLiteral("2"));
    const QSignalSpy home(window.results->buttonHomePage, &QAbstractButton::clicked);
    window.selectTabViewItem(QStringLiteral("4"));
    press(middleOf(window.results->buttonHomePage));
    EXPECT_EQ(home.size(), 0);
}

TEST_F(PressGuardTest, AListUnderTheSecondClickSelectsAndOpensNothing) {
    SomeLocations rows;
    rows.add(QStringLiteral("/home/me/Pictures"), QStringLiteral("folder.png"), false);
    LocationTable& table = *window.locations->tableExact;
    table.setModel(&rows);
    const QSignalSpy opened(&table, &LocationTable::rowOpened);
    window.selectTabViewItem(QStringLiteral("2"));
    const QPoint row =
        table.viewport()->mapTo(&window, table.visualRect(rows.index(0, 0)).center());
    press(row);
    press(row);
    EXPECT_EQ(opened.size(), 0);
    EXPECT_TRUE(table.selectionModel()->selectedRows().isEmpty());
    table.setModel(nullptr);
}

TEST_F(PressGuardTest, PanelsAreFree) {
    showAndRest(QStringLiteral("2"));
    const HoverButton& review = *window.informationWindow->scanInforOKBtn;
    const QSignalSpy reviews(&review, &QAbstractButton::clicked);
    window.selectTabViewItem(QStringLiteral("4"));
    window.showOver(window.informationWindow, {250, 200});
    press(middleOf(&review));
    EXPECT_EQ(reviews.size(), 1);
}

TEST_F(PressGuardTest, EndsWithTheTimeOfADoubleClick) {
    QApplication::setDoubleClickInterval(1);
    window.selectTabViewItem(QStringLiteral("5"));
    const QSignalSpy pauses(window.progress->pauseResume, &QAbstractButton::clicked);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            press(middleOf(window.progress->pauseResume));
            return pauses.size() == 1;
        },
        20000));
    press(middleOf(window.progress->pauseResume));
    EXPECT_EQ(pauses.size(), 2);
}

TEST_F(PressGuardTest, APressThatIsHeldBackEndsWithItsRelease) {
    letScanShowProgress();
    const QSignalSpy pauses(window.progress->pauseResume, &QAbstractButton::clicked);
    press(middleOf(window.locations->findDuplicateExact));
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {},
                      middleOf(window.progress->pauseResume));
    showAndRest(QStringLiteral("2"));
    showAndRest(QStringLiteral("5"));
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {},
                        middleOf(window.progress->pauseResume));
    EXPECT_EQ(pauses.size(), 0);
    press(middleOf(window.progress->pauseResume));
    EXPECT_EQ(pauses.size(), 1);
}

TEST_F(PressGuardTest, AScreenThatPassesUnseenLetsNothingThrough) {
    showAndRest(QStringLiteral("2"));
    window.selectTabViewItem(QStringLiteral("5"));
    window.selectTabViewItem(QStringLiteral("4"));
    const QSignalSpy marks(window.results->markAll, &QAbstractButton::clicked);
    press(middleOf(window.results->markAll));
    EXPECT_EQ(marks.size(), 0);
}

TEST_F(PressGuardTest, TheScreenOfALaunchTakesPressesImmediately) {
    MainWindow launched;
    launched.selectTabViewItem(QStringLiteral("2"));
    launched.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&launched, 20000));
    const QSignalSpy added(launched.locations->addFolders, &QAbstractButton::clicked);
    QTest::mouseClick(launched.locations->addFolders, Qt::LeftButton);
    EXPECT_EQ(added.size(), 1);
}

TEST_F(PressGuardTest, TheSameScreenOnceMoreIsNoChange) {
    showAndRest(QStringLiteral("5"));
    const QSignalSpy pauses(window.progress->pauseResume, &QAbstractButton::clicked);
    window.selectTabViewItem(QStringLiteral("5"));
    press(middleOf(window.progress->pauseResume));
    EXPECT_EQ(pauses.size(), 1);
}

}  // namespace

}  // namespace tarvin
