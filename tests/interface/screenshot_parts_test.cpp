#include "interface/screenshot_parts.h"

#include "controls/menu_button.h"
#include "interface/window_screenshots.h"

#include <QLabel>

namespace tarvin {

namespace {

/// Tests the comparison of screenshots.
class ScreenshotPartsTest : public WindowScreenshots {
 protected:
    ScreenshotPartsTest() {
        rows.add(QStringLiteral("/home/me/Pictures"), QStringLiteral("folder.png"), true);
        window.locations->tableExact->setModel(&rows);
        window.selectTabViewItem(QStringLiteral("2"));
        QCoreApplication::processEvents();
    }
    ~ScreenshotPartsTest() override { window.locations->tableExact->setModel(nullptr); }

    /// The parts that differ from `before`.
    std::string changedSince(const QImage& before) {
        return changedParts(window, rendered(before.devicePixelRatio()), before);
    }

    SomeLocations rows;
};

TEST_F(ScreenshotPartsTest, NothingChangesByItself) {
    EXPECT_EQ(changedSince(rendered(1)), "");
    EXPECT_EQ(changedSince(rendered(2)), "");
}

TEST_F(ScreenshotPartsTest, AnIconThatIsMissingIsNoticed) {
    for (const double ratio : {1.0, 2.0}) {
        const QImage expected = rendered(ratio);
        QImage without = expected;
        const QRect icon(window.buttonMore->mapTo(&window, QPoint(0, 0)),
                         window.buttonMore->size());
        const int factor = static_cast<int>(ratio);
        for (int y = icon.top() * factor; y < (icon.bottom() + 1) * factor; ++y) {
            for (int x = icon.left() * factor; x < (icon.right() + 1) * factor; ++x) {
                without.setPixel(x, y, expected.pixel(icon.topLeft() * factor));
            }
        }
        EXPECT_EQ(changedParts(window, without, expected), "buttonMore");
    }
}

TEST_F(ScreenshotPartsTest, ChangesInTheRowsOfAListAreNoticed) {
    const QImage checked = rendered(1);
    rows.item(0, LocationTable::buttonCell)->setCheckState(Qt::Unchecked);
    EXPECT_EQ(changedSince(checked), "box of row");
    const QImage folder = rendered(1);
    rows.item(0, LocationTable::mainCell)
        ->setData(pictureIcon(QStringLiteral("usb_drive.png")), Qt::DecorationRole);
    EXPECT_EQ(changedSince(folder), "image of row");
}

TEST_F(ScreenshotPartsTest, ATextThatIsMissingIsNoticed) {
    auto* const title = control<QLabel>("locationScreenTitle");
    const QImage expected = rendered(1);
    title->clear();
    EXPECT_EQ(changedSince(expected), "locationScreenTitle");
}

}  // namespace

}  // namespace tarvin
