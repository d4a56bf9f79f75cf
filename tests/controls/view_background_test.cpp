#include "controls/view_background.h"

#include "controls/control_fixture.h"
#include "controls/look.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFontMetrics>
#include <QTranslator>
#include <algorithm>

namespace tarvin {
namespace {

class ViewBackgroundTest : public testing::Test {
 protected:
    ViewBackgroundTest() { view_.resize(1038, 486); }

    QImage picture(const QRect& part) { return view_.grab(part).toImage(); }

    QColor at(int x, int y) { return picture(QRect(x, y, 1, 1)).pixelColor(0, 0); }

    /// Whether there is text between two heights.
    bool isWritten(int top, int bottom) {
        const QImage image = picture(QRect(90, top, 400, bottom - top));
        return !inkBounds(image, Qt::white).isEmpty();
    }

    ViewBackground view_;
};

TEST_F(ViewBackgroundTest, TheCardIsCentredInTheBlue) {
    EXPECT_EQ(view_.card(), QRect(62, 43, 914, 400));
    EXPECT_THAT(at(0, 0), IsRgb(30, 115, 165));
    EXPECT_THAT(at(1037, 485), IsRgb(30, 115, 165));
    EXPECT_THAT(at(61, 200), IsRgb(30, 115, 165));
    EXPECT_THAT(at(62, 43), IsRgb(255, 255, 255));
    EXPECT_THAT(at(975, 442), IsRgb(255, 255, 255));
    EXPECT_THAT(at(976, 200), IsRgb(30, 115, 165));
    EXPECT_THAT(at(500, 42), IsRgb(30, 115, 165));
    EXPECT_THAT(at(500, 443), IsRgb(30, 115, 165));
}

TEST_F(ViewBackgroundTest, TheCardKeepsItsDistanceFromTheFoot) {
    view_.resize(1038, 600);
    EXPECT_EQ(view_.card(), QRect(62, 157, 914, 400));
}

TEST_F(ViewBackgroundTest, TheTextsAreBlackAndBeginAtTheirLeftEdge) {
    const QImage column = picture(QRect(62, 43, 500, 400));
    const double ratio = column.devicePixelRatio();
    const QRect ink = inkBounds(column, Qt::white);
    EXPECT_NEAR(ink.left() / ratio, 90 - 62, 3);
    EXPECT_LE(ink.right() / ratio, 490 - 62);
}

TEST_F(ViewBackgroundTest, TheTextsAreBlack) {
    const QImage column = picture(QRect(62, 43, 500, 400));
    int darkest = 255;
    for (int y = 0; y < column.height(); ++y) {
        for (int x = 0; x < column.width(); ++x) {
            darkest = std::min(darkest, column.pixelColor(x, y).lightness());
        }
    }
    EXPECT_LT(darkest, 16);
}

/// Records the texts to translate.
class ListeningTranslator final : public QTranslator {
 public:
    QString translate(const char*, const char* sourceText, const char*, int) const override {
        asked.push_back(QLatin1String(sourceText));
        return {};
    }
    [[nodiscard]] bool isEmpty() const override { return false; }

    mutable QStringList asked;
};

TEST_F(ViewBackgroundTest, TheTextsAreTheProducts) {
    ListeningTranslator translator;
    QCoreApplication::installTranslator(&translator);
    translator.asked.clear();
    view_.grab();
    QCoreApplication::removeTranslator(&translator);
    const QStringList expected{
        QStringLiteral("Tarvin Duplicate File Remover"),
        QStringLiteral("Photos occupy most of the space on your Device. Many of them are "
                       "duplicates. Clean all similar photos to recover space."),
        QStringLiteral("Search Exact"),
        QStringLiteral("Search photos that are similar enough"),
        QStringLiteral("to be one and the same file."),
        QStringLiteral("Search Similar"),
        QStringLiteral("Search photos that are similar")};
    EXPECT_EQ(translator.asked, expected);
}

TEST_F(ViewBackgroundTest, TheTextsAreStackedDownward) {
    const int title = QFontMetrics(look::font(25)).height();
    const int heading = QFontMetrics(look::font(13, QFont::Bold)).height();
    const int body = QFontMetrics(look::font(13)).height();
    // The bottoms of the texts, from the top of the panel.
    const int titleFoot = 100;
    const int descriptionFoot = titleFoot + body + 30;
    const int headingFoot = descriptionFoot + heading + 40;
    const int firstBodyFoot = headingFoot + body + 10;
    const int secondBodyFoot = firstBodyFoot + body - 5;
    const int secondHeadingFoot = secondBodyFoot + heading + 40;
    const int lastFoot = secondHeadingFoot + body + 10;
    EXPECT_TRUE(isWritten(titleFoot - title - 5, titleFoot - 5));
    EXPECT_TRUE(isWritten(descriptionFoot - body - 25, descriptionFoot - 25));
    EXPECT_FALSE(isWritten(headingFoot - heading - 15, headingFoot - heading - 5));
    EXPECT_TRUE(isWritten(headingFoot - heading - 5, headingFoot - 5));
    EXPECT_TRUE(isWritten(firstBodyFoot - body - 5, firstBodyFoot - 5));
    EXPECT_TRUE(isWritten(secondBodyFoot - body, secondBodyFoot));
    EXPECT_FALSE(isWritten(secondBodyFoot + 3, secondHeadingFoot - heading - 5));
    EXPECT_TRUE(isWritten(secondHeadingFoot - heading - 5, secondHeadingFoot - 5));
    EXPECT_TRUE(isWritten(lastFoot - body - 5, lastFoot - 5));
    EXPECT_FALSE(isWritten(lastFoot + 3, 440));
}

TEST_F(ViewBackgroundTest, PaintingAPartOfItMovesNothing) {
    const QImage whole = picture(QRect(0, 0, 1038, 486));
    const double ratio = whole.devicePixelRatio();
    const QRect part(80, 60, 200, 100);
    const QRect pixels(QPoint(static_cast<int>(80 * ratio), static_cast<int>(60 * ratio)),
                       part.size() * ratio);
    QImage cut = whole.copy(pixels);
    cut.setDevicePixelRatio(ratio);
    EXPECT_EQ(picture(part), cut);
}

}  // namespace
}  // namespace tarvin
