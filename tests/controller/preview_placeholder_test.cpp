#include "controller/preview_placeholder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QRect>
#include <QRegion>
#include <QTranslator>

namespace tarvin {
namespace {

/// The bounding rectangle of all painted pixels.
QRect inkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 0) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

class LongTexts final : public QTranslator {
 public:
    QString translate(const char* /*context*/, const char* /*text*/, const char* /*comment*/,
                      int /*number*/) const override {
        return QStringLiteral("Zum Ansehen dieser Datei bitte doppelt anklicken");
    }
    bool isEmpty() const override { return false; }
};

TEST(PreviewPlaceholder, IsAsLargeAsItsPoints) {
    EXPECT_EQ(previewPlaceholder(1).size(), QSize(250, 250));
    EXPECT_EQ(previewPlaceholder(2).size(), QSize(500, 500));
    EXPECT_EQ(previewPlaceholder(1.5).size(), QSize(375, 375));
    EXPECT_EQ(previewPlaceholder(2).deviceIndependentSize(), QSizeF(250, 250));
}

TEST(PreviewPlaceholder, HasItsTextAtItsPlace) {
    const QRect ink = inkOf(previewPlaceholder(1));
    // The first letter begins a little right of the corner; descenders reach down to it.
    EXPECT_GE(ink.left(), 10);
    EXPECT_LE(ink.left(), 13);
    EXPECT_GT(ink.right(), 220);
    EXPECT_LT(ink.right(), 250);
    EXPECT_LE(ink.bottom(), 130);
    EXPECT_GE(ink.bottom(), 126);
    EXPECT_GE(ink.top(), 130 - 22);
    EXPECT_LE(ink.top(), 130 - 14);
}

/// The same text at the same position, in the system's font for a name.
QImage placeholderIn(const QString& family) {
    QImage image(250, 250, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QFont font(family);
    font.setPixelSize(18);
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(QPointF(10, 250 - 120 - QFontMetricsF(font).descent()),
                     QStringLiteral("Double Click On FIle To Open"));
    return image;
}

TEST(PreviewPlaceholder, IsWrittenInHelvetica) {
    EXPECT_EQ(previewPlaceholder(1), placeholderIn(QStringLiteral("Helvetica")));
    EXPECT_NE(previewPlaceholder(1), placeholderIn(QStringLiteral("DejaVu Sans")));
    EXPECT_NE(previewPlaceholder(1), placeholderIn(QStringLiteral("Times")));
}

TEST(PreviewPlaceholder, IsBlackOnNothing) {
    const QImage image = previewPlaceholder(1);
    bool isSolidSomewhere = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            EXPECT_EQ(qRed(pixel) + qGreen(pixel) + qBlue(pixel), 0);
            isSolidSomewhere |= qAlpha(pixel) == 255;
        }
    }
    EXPECT_TRUE(isSolidSomewhere);
    EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
}

TEST(PreviewPlaceholder, IsSharpAtEveryDensity) {
    const QImage twice = previewPlaceholder(2);
    const QRect ink = inkOf(twice);
    const QRect single = inkOf(previewPlaceholder(1));
    EXPECT_NEAR(ink.width(), 2 * single.width(), 8);
    EXPECT_NEAR(ink.height(), 2 * single.height(), 4);
    // A scaled image would have every pixel twice.
    int unlike = 0;
    for (int x = ink.left() & ~1; x + 1 < ink.right(); x += 2) {
        unlike += static_cast<int>(twice.pixel(x, ink.center().y()) !=
                                   twice.pixel(x + 1, ink.center().y()));
    }
    EXPECT_GT(unlike, 20);
}

TEST(PreviewPlaceholder, HoldsLongTranslations) {
    LongTexts texts;
    QCoreApplication::installTranslator(&texts);
    const QRect ink = inkOf(previewPlaceholder(1));
    QCoreApplication::removeTranslator(&texts);
    EXPECT_LT(ink.right(), 250);
    EXPECT_LT(ink.height(), 18);
}

}  // namespace
}  // namespace tarvin
