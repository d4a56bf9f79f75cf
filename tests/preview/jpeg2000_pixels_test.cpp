#include "preview/jpeg2000_pixels.h"

#include <gtest/gtest.h>
#include <openjpeg.h>

#include <QColor>
#include <QImage>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarvin {
namespace {

/// One decoded component.
struct Component {
    OPJ_UINT32 width = 1;
    OPJ_UINT32 height = 1;
    OPJ_UINT32 bits = 8;
    bool isSigned = false;
    std::vector<OPJ_INT32> values;
};

QImage pixelsOf(std::vector<Component> components, OPJ_COLOR_SPACE space = OPJ_CLRSPC_UNSPECIFIED) {
    std::vector<opj_image_comp_t> decoded;
    for (Component& component : components) {
        opj_image_comp_t one{};
        one.dx = component.width == 0 ? 1 : components.front().width / component.width;
        one.dy = component.height == 0 ? 1 : components.front().height / component.height;
        one.w = component.width;
        one.h = component.height;
        one.prec = component.bits;
        one.sgnd = component.isSigned ? 1 : 0;
        one.data = component.values.empty() ? nullptr : component.values.data();
        decoded.push_back(one);
    }
    opj_image_t image{};
    image.numcomps = static_cast<OPJ_UINT32>(decoded.size());
    image.color_space = space;
    image.comps = decoded.data();
    return jpeg2000Pixels(image);
}

/// The colour of a one-pixel image.
QColor colorOf(const std::vector<OPJ_INT32>& values,
               OPJ_COLOR_SPACE space = OPJ_CLRSPC_UNSPECIFIED) {
    std::vector<Component> components;
    for (const OPJ_INT32 value : values) {
        components.push_back({.values = {value}});
    }
    const QImage pixels = pixelsOf(components, space);
    EXPECT_EQ(pixels.size(), QSize(1, 1));
    return pixels.pixelColor(0, 0);
}

TEST(Jpeg2000Pixels, AreGrayOrRgbWithOrWithoutAlpha) {
    EXPECT_EQ(colorOf({77}), QColor(77, 77, 77));
    EXPECT_EQ(colorOf({77, 128}), QColor(77, 77, 77, 128));
    EXPECT_EQ(colorOf({10, 20, 30}), QColor(10, 20, 30));
    EXPECT_EQ(colorOf({10, 20, 30, 40}), QColor(10, 20, 30, 40));
    EXPECT_EQ(colorOf({10, 20, 30, 40, 50}), QColor(10, 20, 30, 40));
}

TEST(Jpeg2000Pixels, ConvertCmyk) {
    EXPECT_EQ(colorOf({0, 255, 255, 0}, OPJ_CLRSPC_CMYK), QColor(255, 0, 0));
    EXPECT_EQ(colorOf({0, 0, 0, 255}, OPJ_CLRSPC_CMYK), QColor(0, 0, 0));
    EXPECT_EQ(colorOf({0, 0, 0, 0}, OPJ_CLRSPC_CMYK), QColor(255, 255, 255));
}

TEST(Jpeg2000Pixels, ConvertYcc) {
    const QColor red = colorOf({76, 85, 255}, OPJ_CLRSPC_SYCC);
    EXPECT_GE(red.red(), 253);
    EXPECT_LE(red.green(), 2);
    EXPECT_LE(red.blue(), 2);
    EXPECT_EQ(colorOf({200, 128, 128}, OPJ_CLRSPC_SYCC), QColor(200, 200, 200));
}

TEST(Jpeg2000Pixels, TreatSubsampledComponentsAsYcc) {
    const Component light{.width = 4, .height = 2, .values = {76, 76, 29, 29, 76, 76, 29, 29}};
    const Component blue{.width = 2, .height = 1, .values = {85, 255}};
    const Component red{.width = 2, .height = 1, .values = {255, 107}};
    const QImage pixels = pixelsOf({light, blue, red});
    ASSERT_EQ(pixels.size(), QSize(4, 2));
    for (const int y : {0, 1}) {
        for (const int x : {0, 1}) {
            EXPECT_GE(pixels.pixelColor(x, y).red(), 250) << x << ' ' << y;
            EXPECT_LE(pixels.pixelColor(x, y).blue(), 5) << x << ' ' << y;
            EXPECT_GE(pixels.pixelColor(x + 2, y).blue(), 250) << x << ' ' << y;
            EXPECT_LE(pixels.pixelColor(x + 2, y).red(), 5) << x << ' ' << y;
        }
    }
}

TEST(Jpeg2000Pixels, ScaleEveryPrecision) {
    const auto gray = [](OPJ_UINT32 bits, bool isSigned, OPJ_INT32 value) {
        return pixelsOf({{.bits = bits, .isSigned = isSigned, .values = {value}}})
            .pixelColor(0, 0)
            .red();
    };
    EXPECT_EQ(gray(1, false, 1), 255);
    EXPECT_EQ(gray(1, false, 0), 0);
    EXPECT_EQ(gray(16, false, 65'535), 255);
    EXPECT_EQ(gray(16, false, 32'768), 127);
    EXPECT_EQ(gray(8, true, -128), 0);
    EXPECT_EQ(gray(8, true, 127), 255);
    EXPECT_EQ(gray(31, false, 0x7FFFFFFF), 255);
    // Out of the range of the precision.
    EXPECT_EQ(gray(8, false, -5), 0);
    EXPECT_EQ(gray(8, false, 300), 255);
}

TEST(Jpeg2000Pixels, AreNullIfAComponentIsMissing) {
    EXPECT_TRUE(pixelsOf({}).isNull());
    EXPECT_TRUE(pixelsOf({{.values = {1}}, {.values = {}}, {.values = {1}}}).isNull());
    EXPECT_TRUE(pixelsOf({{.bits = 0, .values = {1}}}).isNull());
    EXPECT_TRUE(pixelsOf({{.bits = 38, .values = {1}}}).isNull());
    EXPECT_TRUE(pixelsOf({{.width = 0, .values = {1}}}).isNull());
}

}  // namespace
}  // namespace tarvin
