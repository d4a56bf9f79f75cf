#include "preview/preview_format.h"

#include <gtest/gtest.h>

#include <QColor>
#include <string>

namespace tarvin {
namespace {

QImage redAndBlue() {
    QImage image(2, 1, QImage::Format_RGB888);
    image.setPixelColor(0, 0, Qt::red);
    image.setPixelColor(1, 0, Qt::blue);
    return image;
}

QByteArray sizes(int width, int height, int pictureWidth, int pictureHeight) {
    return encodedSize({width, height}) + encodedSize({pictureWidth, pictureHeight});
}

TEST(PreviewFormat, IsLittleEndian) {
    EXPECT_EQ(encodedSize({1, 0x01020304}).toStdString(), std::string("\1\0\0\0\4\3\2\1", 8));
}

TEST(PreviewReader, IsEmptyInitially) {
    PreviewReader reader;
    EXPECT_FALSE(reader.size().has_value());
    EXPECT_TRUE(reader.picture().isNull());
    EXPECT_TRUE(reader.take({}));
    EXPECT_TRUE(reader.take("\1\0\0"));
    EXPECT_FALSE(reader.size().has_value());
}

TEST(PreviewReader, AssemblesChunks) {
    const QByteArray whole = encodedSize({4000, 2000}) + encodedPicture(redAndBlue());
    PreviewReader reader;
    for (qsizetype byte = 0; byte < whole.size(); ++byte) {
        EXPECT_TRUE(reader.picture().isNull()) << byte;
        EXPECT_EQ(reader.size().has_value(), byte >= 8) << byte;
        EXPECT_TRUE(reader.take(whole.mid(byte, 1))) << byte;
    }
    EXPECT_EQ(reader.size(), QSize(4000, 2000));
    const QImage picture = reader.picture();
    ASSERT_EQ(picture.size(), QSize(2, 1));
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(1, 0), QColor(Qt::blue));
}

TEST(PreviewReader, ReturnsPicturesThatOutliveIt) {
    QImage picture;
    {
        PreviewReader reader;
        EXPECT_TRUE(reader.take(encodedSize({2, 1}) + encodedPicture(redAndBlue())));
        picture = reader.picture();
    }
    EXPECT_EQ(picture.pixelColor(1, 0), QColor(Qt::blue));
}

TEST(PreviewReader, RefusesMoreThanThePixels) {
    PreviewReader reader;
    EXPECT_TRUE(reader.take(encodedSize({2, 1}) + encodedPicture(redAndBlue())));
    EXPECT_FALSE(reader.take("x"));
    EXPECT_FALSE(reader.take({}));
    EXPECT_TRUE(reader.picture().isNull());
}

TEST(PreviewReader, RefusesInvalidSizes) {
    for (const QSize size : {QSize(0, 1), QSize(1, 0), QSize(-1, 1), QSize(1, -2147483647)}) {
        PreviewReader reader;
        EXPECT_FALSE(reader.take(encodedSize(size)));
        PreviewReader ofPicture;
        EXPECT_FALSE(ofPicture.take(sizes(1, 1, size.width(), size.height())));
        EXPECT_TRUE(ofPicture.picture().isNull());
    }
    PreviewReader wide;
    EXPECT_FALSE(wide.take(sizes(1, 1, maxPreviewSide + 1, 1)));
    PreviewReader high;
    EXPECT_FALSE(high.take(sizes(1, 1, 1, maxPreviewSide + 1)));
    PreviewReader largest;
    EXPECT_TRUE(largest.take(sizes(2147483647, 2147483647, maxPreviewSide, maxPreviewSide)));
}

}  // namespace
}  // namespace tarvin
