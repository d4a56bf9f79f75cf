#include "controls/button_hover_complex.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "interface/home_screen.h"
#include "interface/main_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>
#include <QTest>
#include <QWindow>

namespace tarvin {
namespace {

constexpr QSize smallSize{400, 200};

/// Looks at itself when the contents would be made.
class Probe final : public EarlyWindow {
 public:
    explicit Probe(Appearance appearance) : EarlyWindow(nullptr, appearance, smallSize) {
        visible = isVisible();
        if (!visible) {
            return;
        }
        exposed = windowHandle()->isExposed();
        picture = screen()->grabWindow(winId()).toImage();
        closed = EarlyWindow::close();
        paintedOver = grab().toImage();
    }

    bool visible = false;
    bool exposed = false;
    bool closed = false;
    QImage picture;
    QImage paintedOver;
};

TEST(EarlyWindowTest, IsOnTheScreenBeforeItsContentsAreMade) {
    const Probe probe(EarlyWindow::Appearance::atOnce);
    EXPECT_TRUE(probe.visible);
    EXPECT_TRUE(probe.exposed);
    EXPECT_EQ(probe.windowTitle(), QStringLiteral("Tarvin Duplicate File Remover"));
    EXPECT_EQ(probe.size(), smallSize);
}

TEST(EarlyWindowTest, ShowsTheBarAndTheGroundMeanwhile) {
    const Probe probe(EarlyWindow::Appearance::atOnce);
    ASSERT_EQ(probe.picture.size(), smallSize);
    EXPECT_EQ(probe.picture.pixelColor(10, 10), look::topBar);
    EXPECT_EQ(probe.picture.pixelColor(10, 44), look::topBar);
    EXPECT_EQ(probe.picture.pixelColor(10, 45), look::panelBlue);
    EXPECT_EQ(probe.picture.pixelColor(390, 190), look::panelBlue);
}

TEST(EarlyWindowTest, LeavesTheGroundToTheContentsAfterwards) {
    const Probe probe(EarlyWindow::Appearance::atOnce);
    ASSERT_EQ(probe.paintedOver.size(), smallSize);
    EXPECT_EQ(probe.paintedOver.pixelColor(10, 10), look::page);
    EXPECT_EQ(probe.paintedOver.pixelColor(390, 190), look::page);
}

TEST(EarlyWindowTest, CannotBeClosedBeforeItsContentsAreMade) {
    const Probe probe(EarlyWindow::Appearance::atOnce);
    EXPECT_FALSE(probe.closed);
    EXPECT_TRUE(probe.isVisible());
}

TEST(EarlyWindowTest, WaitsForItsShowingIfItIsNotToAppearAtOnce) {
    const Probe probe(EarlyWindow::Appearance::whenShown);
    EXPECT_FALSE(probe.visible);
    EXPECT_FALSE(probe.isVisible());
    EXPECT_EQ(probe.minimumSize(), smallSize);
}

/// What a window shows that has the keyboard.
QImage pictureOf(MainWindow& window) {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 20000));
    return window.grab().toImage();
}

TEST(EarlyWindowTest, TheMainWindowShowsTheSameHoweverItAppears) {
    MainWindow later;
    const QImage expected = pictureOf(later);
    later.hide();
    MainWindow early(EarlyWindow::Appearance::atOnce);
    EXPECT_TRUE(early.isVisible());
    EXPECT_TRUE(early.home->mainScanButton->isVisible());
    EXPECT_TRUE(early.buttonHelpManual->isVisible());
    EXPECT_EQ(pictureOf(early), expected);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("mainScanButton"));
}

}  // namespace
}  // namespace tarvin
