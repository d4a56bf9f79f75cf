#include "interface/image_view.h"

#include "support/on_screen.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tarvin {

namespace {

/// 100 x 100; the left quarter is red, the rest blue.
QImage quarteredImage() {
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(Qt::blue);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width() / 4; ++x) {
            image.setPixelColor(x, y, Qt::red);
        }
    }
    return image;
}

QImage renderedAt(QWidget& widget, double devicePixelRatio) {
    QImage image(widget.size() * devicePixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(devicePixelRatio);
    widget.render(&image);
    return image;
}

TEST(ImageView, ScalesAgainForAnotherDevicePixelRatio) {
    ImageView view;
    view.setImage(quarteredImage());
    // Both scale to 100 device pixels.
    view.resize(102, 102);
    const QImage single = renderedAt(view, 1);
    EXPECT_EQ(single.pixelColor(20, 50), QColor(255, 0, 0));
    EXPECT_EQ(single.pixelColor(30, 50), QColor(0, 0, 255));
    view.resize(52, 52);
    const QImage twofold = renderedAt(view, 2);
    EXPECT_EQ(twofold.pixelColor(20, 50), QColor(255, 0, 0));
    EXPECT_EQ(twofold.pixelColor(32, 50), QColor(0, 0, 255));
}

TEST(ImageView, AnotherImageIsShown) {
    ImageView view;
    view.resize(102, 102);
    view.setImage(quarteredImage());
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view, 20'000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return isUpToDate(view); }, 20'000));
    QImage other(100, 100, QImage::Format_RGB32);
    other.fill(Qt::green);
    view.setImage(other);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            const QImage shown = onScreen(view);
            return shown.pixelColor(shown.rect().center()) == QColor(0, 255, 0);
        },
        20'000));
}

}  // namespace

}  // namespace tarvin
