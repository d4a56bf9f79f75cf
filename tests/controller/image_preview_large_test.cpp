#include "controller/image_preview_fixture.h"
#include "controller/preview_memory.h"
#include "support/image_bytes.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <filesystem>
#include <string>

namespace tarvin {
namespace {

/// Images as large as those of current cameras, scanners and printers, within the limits of time
/// and memory.
class ImagePreviewOfALarge : public ImagePreviewFixture {
 protected:
    void expectShown(const std::string& path, QSize full, QSize small, QColor color) {
        const QImage image = previewOf(path);
        EXPECT_EQ(measured(), full);
        ASSERT_EQ(image.size(), small);
        for (const QPoint position :
             {QPoint(0, 0), image.rect().center(), image.rect().bottomRight()}) {
            EXPECT_TRUE(isNear(image.pixelColor(position), color))
                << image.pixelColor(position).name().toStdString();
        }
#ifndef TARVIN_SANITIZED
        EXPECT_LE(costOfPreview(path).megabytes, 512);
#endif
    }
};

TEST_F(ImagePreviewOfALarge, JpegIsShown) {
    QImage image(8256, 5504, QImage::Format_RGB888);
    image.fill(Qt::red);
    const std::string path = tree_.pathOf("a.jpg");
    ASSERT_TRUE(image.save(QString::fromStdString(path)));
    expectShown(path, {8256, 5504}, {640, 426}, Qt::red);
}

TEST_F(ImagePreviewOfALarge, JpegInPassesIsShown) {
    expectShown(tree_.writeFile("a.jpg", imagebytes::progressiveJpeg(8256, 5504)), {8256, 5504},
                {640, 426}, Qt::red);
}

TEST_F(ImagePreviewOfALarge, PngOf16BitsIsShown) {
    expectShown(tree_.writeFile(
                    "a.png", imagebytes::deepPng(8256, 5504, std::string("\xff\xff\0\0\0\0", 6))),
                {8256, 5504}, {640, 426}, Qt::red);
}

/// Qt would copy it as a whole before scaling it.
TEST_F(ImagePreviewOfALarge, PngOf16BitsAndTransparencyIsShown) {
    const std::string path = tree_.writeFile(
        "a.png", imagebytes::deepPng(7000, 4400, std::string("\xff\xff\0\0\0\0\xff\xff", 8)));
    expectShown(path, {7000, 4400}, {640, 402}, Qt::red);
}

TEST_F(ImagePreviewOfALarge, TiffOf16BitsIsShown) {
    expectShown(
        tree_.writeFile("a.tiff", imagebytes::flatTiff(8256, 5504, imagebytes::TiffColors::light, 3,
                                                       std::string("\0\0\0\0\xff\xff", 6))),
        {8256, 5504}, {640, 426}, Qt::blue);
}

TEST_F(ImagePreviewOfALarge, TiffOfInksIsShown) {
    expectShown(
        tree_.writeFile("a.tiff", imagebytes::flatTiff(8192, 5250, imagebytes::TiffColors::inks, 4,
                                                       std::string("\0\xff\xff\0", 4))),
        {8192, 5250}, {640, 410}, Qt::red);
}

TEST_F(ImagePreviewOfALarge, BmpIsShown) {
    const std::string path = tree_.writeFile("a.bmp", imagebytes::bmpHeader(8192, 5250));
    // Black, in a sparse file.
    std::filesystem::resize_file(path, 54);
    std::filesystem::resize_file(path, 54 + std::uintmax_t{3} * 8192 * 5250);
    expectShown(path, {8192, 5250}, {640, 410}, Qt::black);
}

}  // namespace
}  // namespace tarvin
