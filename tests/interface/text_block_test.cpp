#include "interface/text_block.h"

#include "controls/look.h"

#include <gtest/gtest.h>

#include <QImage>

namespace tarvin {

namespace {

/// The rows of pixels, from the top, that contain something dark.
QVector<int> darkRows(const QImage& image) {
    QVector<int> rows;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128) {
                rows.push_back(y);
                break;
            }
        }
    }
    return rows;
}

QImage painted(TextBlock& block, const QSize& size) {
    block.resize(size);
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    block.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

TEST(TextBlockTest, CountsItsLinesByTheirPitch) {
    TextBlock block(look::font(14), 22, Qt::black);
    block.setText(QStringLiteral("first\nsecond\nthird"));

    EXPECT_EQ(block.heightForWidth(500), 66);
}

TEST(TextBlockTest, BreaksALongTextBetweenWords) {
    TextBlock block(look::font(14), 20, Qt::black);
    block.setText(QStringLiteral("wide wide wide wide"));
    const int oneWord = block.fontMetrics().horizontalAdvance(QStringLiteral("wide "));

    EXPECT_EQ(block.heightForWidth(5 * oneWord), 20);
    EXPECT_EQ(block.heightForWidth(oneWord + 2), 80);
}

TEST(TextBlockTest, BreaksAWordThatIsWiderThanItself) {
    TextBlock block(look::font(14), 20, Qt::black);
    block.setText(QString(60, QLatin1Char('m')));

    EXPECT_GT(block.heightForWidth(100), 100);
}

TEST(TextBlockTest, PutsEachLineInItsShareOfThePitch) {
    TextBlock block(look::font(14), 40, Qt::black);
    block.setText(QStringLiteral("one\ntwo"));

    const QVector<int> rows = darkRows(painted(block, {200, 80}));

    ASSERT_FALSE(rows.isEmpty());
    EXPECT_GE(rows.front(), 5);
    EXPECT_LT(rows.front(), 20);
    EXPECT_GE(rows.back(), 45);
    EXPECT_LT(rows.back(), 75);
    EXPECT_FALSE(rows.contains(39));
    EXPECT_FALSE(rows.contains(40));
}

TEST(TextBlockTest, PutsItsLinesInTheMiddleWhenAsked) {
    TextBlock block(look::font(14), 20, Qt::black);
    block.setText(QStringLiteral("one"));
    block.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    const QVector<int> rows = darkRows(painted(block, {200, 100}));

    ASSERT_FALSE(rows.isEmpty());
    EXPECT_GE(rows.front(), 40);
    EXPECT_LT(rows.back(), 60);
}

TEST(TextBlockTest, ShowsMarkupAsItIs) {
    TextBlock block(look::font(14), 20, Qt::black);
    block.setText(QStringLiteral("<b>a</b><br>b"));

    EXPECT_EQ(block.heightForWidth(500), 20);
    EXPECT_EQ(block.text(), QStringLiteral("<b>a</b><br>b"));
}

}  // namespace

}  // namespace tarvin
