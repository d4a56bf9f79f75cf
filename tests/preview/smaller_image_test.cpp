#include "preview/smaller_image.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <algorithm>
#include <cstdlib>

namespace tarvin {
namespace {

/// Red grows from left to right, green from top to bottom, from 0 to 255.
QImage slope(QSize size, QImage::Format format) {
    QImage image(size, QImage::Format_RGBA64);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixelColor(
                x, y, QColor(255 * x / (size.width() - 1), 255 * y / (size.height() - 1), 0));
        }
    }
    return image.convertToFormat(format);
}

/// The maximum difference of a channel of a pixel.
int difference(const QImage& first, const QImage& second) {
    int most = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            const QColor a = first.pixelColor(x, y);
            const QColor b = second.pixelColor(x, y);
            most = std::max({most, std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                             std::abs(a.blue() - b.blue()), std::abs(a.alpha() - b.alpha())});
        }
    }
    return most;
}

TEST(FittedSize, KeepsProportionsAndLines) {
    EXPECT_EQ(fitted({4000, 3000}, 640), QSize(640, 480));
    EXPECT_EQ(fitted({3000, 4000}, 640), QSize(480, 640));
    EXPECT_EQ(fitted({20'000, 1}, 640), QSize(640, 1));
    EXPECT_EQ(fitted({1, 2'147'483'647}, 640), QSize(1, 640));
    EXPECT_TRUE(fits({640, 640}, 640));
    EXPECT_FALSE(fits({641, 1}, 640));
    EXPECT_FALSE(fits({1, 641}, 640));
}

TEST(SmallerImage, KeepsTheGradient) {
    for (const QImage::Format format :
         {QImage::Format_RGB32, QImage::Format_RGB888, QImage::Format_RGBA64,
          QImage::Format_ARGB32_Premultiplied}) {
        // About sixteen to one, so that both steps are used, and not an integer.
        const QImage small = smaller(slope({1003, 517}, format), {62, 32});
        ASSERT_EQ(small.size(), QSize(62, 32)) << format;
        EXPECT_LE(difference(small, slope({62, 32}, QImage::Format_RGB32)), 6) << format;
    }
}

TEST(SmallerImage, AveragesAllPixels) {
    // Thin lines, of which sampling single pixels would show all or none.
    QImage lines(1024, 1024, QImage::Format_RGB32);
    lines.fill(Qt::black);
    for (int row = 0; row < lines.height(); row += 2) {
        for (int x = 0; x < lines.width(); ++x) {
            lines.setPixel(x, row, qRgb(255, 255, 255));
        }
    }
    const QImage small = smaller(lines, {32, 32});
    for (int y = 0; y < 32; ++y) {
        EXPECT_NEAR(small.pixelColor(16, y).red(), 128, 4) << y;
    }
}

TEST(SmallerImage, KeepsPalettesAndAlpha) {
    QImage palette(640, 640, QImage::Format_Indexed8);
    palette.setColorTable({qRgb(10, 20, 30), qRgb(200, 100, 50)});
    palette.fill(1);
    EXPECT_EQ(smaller(palette, {20, 20}).pixelColor(10, 10), QColor(200, 100, 50));
    QImage clear(640, 640, QImage::Format_ARGB32);
    clear.fill(QColor(200, 100, 50, 128));
    const QColor color = smaller(clear, {20, 20}).pixelColor(10, 10);
    EXPECT_EQ(color.alpha(), 128);
    EXPECT_NEAR(color.red(), 200, 2);
}

TEST(SmallerImage, KeepsLines) {
    QImage line(20'000, 1, QImage::Format_RGB32);
    line.fill(Qt::red);
    EXPECT_EQ(smaller(line, {640, 1}).pixelColor(320, 0), QColor(Qt::red));
    EXPECT_TRUE(smaller({}, {1, 1}).isNull());
}

}  // namespace
}  // namespace tarvin
