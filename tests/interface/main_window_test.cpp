#include "controls/hover_button.h"
#include "controls/scan_animation.h"
#include "controls/spinner.h"
#include "interface/home_screen.h"
#include "interface/loading_overlay.h"
#include "interface/picture_view.h"
#include "interface/shown_window.h"

#include <QAction>
#include <QMenu>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QStyle>
#include <QStyleFactory>

namespace tarvin {

namespace {

using MainWindowTest = ShownWindow;

TEST_F(MainWindowTest, OpensOnHomeInItsSmallestSize) {
    EXPECT_EQ(window.selectedTabViewItem(), QStringLiteral("1"));
    EXPECT_EQ(window.size(), QSize(1016, 531));
    EXPECT_EQ(window.minimumSize(), QSize(1016, 531));
}

TEST_F(MainWindowTest, HasTheBackgroundOfAPage) {
    EXPECT_EQ(window.palette().color(QPalette::Window), QColor(243, 246, 248));
}

TEST_F(MainWindowTest, TheLoadingOverlayCoversTheResultsAndAnimates) {
    window.selectTabViewItem(QStringLiteral("4"));
    window.tabViewMain->raise();
    window.loading().show();
    EXPECT_TRUE(window.loadingView->isVisible());
    EXPECT_TRUE(window.loadingIndicator->isAnimating());
    EXPECT_EQ(window.childAt(window.loadingView->geometry().center()), window.loadingIndicator);
    window.loading().hide();
    EXPECT_FALSE(window.loadingView->isVisible());
    EXPECT_FALSE(window.loadingIndicator->isAnimating());
}

TEST_F(MainWindowTest, SelectsEachScreenByItsIdentifier) {
    const QVector<QPair<const char*, const char*>> screens = {{"1", "homeScreen"},
                                                              {"2", "locationScreen"},
                                                              {"5", "progressScreen"},
                                                              {"4", "resultScreen"}};
    for (const auto& [identifier, name] : screens) {
        window.selectTabViewItem(QLatin1String(identifier));
        EXPECT_EQ(window.selectedTabViewItem(), QLatin1String(identifier));
        for (const auto& other : screens) {
            EXPECT_EQ(control(other.second)->isVisible(), other.second == name) << other.second;
        }
    }
}

TEST_F(MainWindowTest, AnUnknownScreenChangesNothing) {
    window.selectTabViewItem(QStringLiteral("2"));
    window.selectTabViewItem(QStringLiteral("3"));

    EXPECT_EQ(window.selectedTabViewItem(), QStringLiteral("2"));
}

TEST_F(MainWindowTest, ClosesWithoutAClosePermission) {
    const QSignalSpy closes(&window, &MainWindow::windowWillClose);

    EXPECT_TRUE(window.close());

    EXPECT_EQ(closes.size(), 1);
}

TEST_F(MainWindowTest, StaysWhenItMayNotClose) {
    const QSignalSpy closes(&window, &MainWindow::windowWillClose);
    int asked = 0;
    window.setClosePermission([&asked] {
        ++asked;
        return asked > 1;
    });

    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(closes.size(), 0);

    EXPECT_TRUE(window.close());
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(closes.size(), 1);
}

TEST_F(MainWindowTest, TheHelpMenuHangsUnderItsButtonAtTheRight) {
    // The screen of the offscreen platform is narrower than the window.
    window.move(-700, 0);
    window.popUpHelpMenu();

    ASSERT_TRUE(window.helpMenu->isVisible());
    const QRect button(window.buttonHelpManual->mapToGlobal(QPoint(0, 0)),
                       window.buttonHelpManual->size());
    const QRect menu = window.helpMenu->geometry();
    EXPECT_GE(menu.width(), 282);
    EXPECT_EQ(menu.right(), button.right());
    EXPECT_EQ(menu.top(), button.bottom() + 1 + 4);
    window.helpMenu->close();
}

TEST_F(MainWindowTest, TheHelpMenuReportsTheChosenItem) {
    window.popUpHelpMenu();
    const QSignalSpy about(window.aboutMenuItem, &QAction::triggered);

    QTest::mouseClick(window.helpMenu, Qt::LeftButton, {},
                      window.helpMenu->actionGeometry(window.aboutMenuItem).center());

    EXPECT_EQ(about.size(), 1);
    EXPECT_FALSE(window.helpMenu->isVisible());
}

TEST_F(MainWindowTest, TheTwoNamesOfTheDriveTileAreOneButton) {
    EXPECT_EQ(window.home->buttonScanDrive, window.home->mainScanButton);
}

TEST_F(MainWindowTest, TheStartImageCoversTheCard) {
    window.home->homePage->setPictureName(QStringLiteral("HomePage1.png"));

    const QImage image = window.home->homePage->grab().toImage();
    EXPECT_EQ(image.pixelColor(5, 5), QColor(255, 255, 255));
    EXPECT_NE(image.pixelColor(image.width() - 10, 5), QColor(255, 255, 255));
}

TEST_F(MainWindowTest, AMissingStartImageLeavesTheCardWhite) {
    window.home->homePage->setPictureName(QStringLiteral("HomePage9.png"));

    const QImage image = window.home->homePage->grab().toImage();
    EXPECT_EQ(image.pixelColor(5, 5), QColor(255, 255, 255));
    EXPECT_EQ(image.pixelColor(image.width() - 10, 5), QColor(255, 255, 255));
}

/// A desktop with light text on dark backgrounds.
QPalette darkPalette() {
    QPalette dark(QColor(40, 40, 40), QColor(20, 20, 20));
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Text, Qt::white);
    return dark;
}

/// Screenshots of all screens of a new window.
QVector<QImage> screensNow() {
    MainWindow window;
    window.show();
    QVector<QImage> images;
    for (const char* screen : {"1", "2", "5", "4"}) {
        window.selectTabViewItem(QLatin1String(screen));
        images.push_back(window.grab().toImage());
    }
    return images;
}

TEST(DesktopTest, DarkColorsChangeNothingInTheWindow) {
    const QPalette usual = QApplication::palette();
    const QVector<QImage> light = screensNow();
    QApplication::setPalette(darkPalette());
    const QVector<QImage> dark = screensNow();
    QApplication::setPalette(usual);

    EXPECT_EQ(light, dark);
}

TEST(DesktopTest, AnotherStyleChangesNothingInTheWindow) {
    const QString usual = QApplication::style()->name();
    ASSERT_TRUE(QStyleFactory::keys().contains(QStringLiteral("Windows")));
    QApplication::setStyle(QStringLiteral("Fusion"));
    const QVector<QImage> fusion = screensNow();
    QApplication::setStyle(QStringLiteral("Windows"));
    const QVector<QImage> windows = screensNow();
    QApplication::setStyle(usual);

    EXPECT_EQ(fusion, windows);
}

}  // namespace

}  // namespace tarvin
