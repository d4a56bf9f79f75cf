#include "controls/images.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

TEST(Images, EveryNamedImageExists) {
    for (const char* name : {"HomePage1.png",
                             "HomePage2.png",
                             "HomePage3.png",
                             "Home Normal.png",
                             "Home Normal Disabled.png",
                             "Home Hover.png",
                             "Back Onclick.png",
                             "usb_drive.png",
                             "network_drive.png",
                             "g5_apple_drive.png",
                             "mymac.png",
                             "folder",
                             "app_icon",
                             "ui/tile_drives",
                             "ui/tile_folders",
                             "ui/scan_stage",
                             "ui/scan_lens",
                             "ui/check_on",
                             "ui/check_off",
                             "ui/check_mixed",
                             "ui/back",
                             "ui/next",
                             "ui/brand_mark"}) {
        const QPixmap pixmap = picture(QString::fromUtf8(name), QSize(32, 32), 1.0);
        EXPECT_FALSE(pixmap.isNull()) << name;
        EXPECT_FALSE(pictureIcon(QString::fromUtf8(name)).isNull()) << name;
    }
}

TEST(Images, AMissingNameIsNull) {
    EXPECT_TRUE(picture(QStringLiteral("no such picture.png"), QSize(32, 32), 1.0).isNull());
    EXPECT_TRUE(picture(QString(), QSize(32, 32), 1.0).isNull());
    EXPECT_TRUE(picture(QStringLiteral("../images/folder"), QSize(0, 0), 1.0).isNull());
    EXPECT_TRUE(pictureIcon(QStringLiteral("no such picture")).isNull());
    EXPECT_TRUE(pictureSize(QStringLiteral("no such picture")).isEmpty());
}

TEST(Images, NothingIsRenderedIntoAnEmptySize) {
    EXPECT_TRUE(picture(QStringLiteral("folder"), QSize(0, 10), 1.0).isNull());
    EXPECT_TRUE(picture(QStringLiteral("folder"), QSize(-5, 10), 1.0).isNull());
    EXPECT_TRUE(picture(QStringLiteral("folder"), QSize(10, 10), 0.0).isNull());
}

TEST(Images, TheSuffixMayBeOmitted) {
    const QSize size(45, 45);
    EXPECT_EQ(picture(QStringLiteral("Home Hover.png"), size, 1.0).toImage(),
              picture(QStringLiteral("Home Hover"), size, 1.0).toImage());
}

TEST(Images, ThePixelsFollowThePixelRatio) {
    for (const double ratio : {1.0, 2.0, 3.0}) {
        const QPixmap pixmap = picture(QStringLiteral("HomePage1.png"), QSize(914, 400), ratio);
        EXPECT_EQ(pixmap.size(), QSize(914, 400) * ratio);
        EXPECT_DOUBLE_EQ(pixmap.devicePixelRatio(), ratio);
    }
}

TEST(Images, EveryPixelRatioIsSharp) {
    // The left edge of the box is at a whole logical pixel. An image scaled up from another ratio
    // would blur it over several.
    for (const double ratio : {1.0, 2.0, 3.0}) {
        const QImage image = picture(QStringLiteral("ui/check_on"), QSize(18, 18), ratio).toImage();
        const int edge = static_cast<int>(ratio);
        const int middle = image.height() / 2;
        EXPECT_EQ(image.pixelColor(edge - 1, middle).alpha(), 0) << ratio;
        EXPECT_EQ(image.pixelColor(edge, middle).alpha(), 255) << ratio;
    }
}

TEST(Images, PixelRatiosAreNotMixedUp) {
    const QSize size(18, 18);
    EXPECT_NE(picture(QStringLiteral("ui/check_on"), size, 1.0).cacheKey(),
              picture(QStringLiteral("ui/check_on"), size, 1.25).cacheKey());
}

TEST(Images, ASecondCallUsesTheCache) {
    const QSize size(110, 110);
    EXPECT_EQ(picture(QStringLiteral("ui/tile_drives"), size, 2.0).cacheKey(),
              picture(QStringLiteral("ui/tile_drives"), size, 2.0).cacheKey());
}

TEST(Images, TheAspectRatioIsKept) {
    // 20 x 20 into 40 x 20: nothing in the outer quarters.
    const QImage image = picture(QStringLiteral("app_icon"), QSize(40, 20), 1.0).toImage();
    EXPECT_EQ(image.pixelColor(4, 10).alpha(), 0);
    EXPECT_EQ(image.pixelColor(35, 10).alpha(), 0);
    EXPECT_EQ(image.pixelColor(20, 10).alpha(), 255);
}

TEST(Images, EachHasItsDesignSize) {
    EXPECT_EQ(pictureSize(QStringLiteral("HomePage2.png")), QSize(914, 400));
    EXPECT_EQ(pictureSize(QStringLiteral("ui/tile_folders")), QSize(110, 110));
    EXPECT_EQ(pictureSize(QStringLiteral("usb_drive.png")), QSize(64, 64));
}

TEST(Images, AnIconIsRenderedAtThePixelRatioOfItsTarget) {
    const QIcon icon = pictureIcon(QStringLiteral("folder"));
    EXPECT_EQ(icon.name(), QStringLiteral("folder"));
    EXPECT_EQ(icon.pixmap(QSize(40, 40), 3.0).size(), QSize(120, 120));
    EXPECT_EQ(icon.pixmap(QSize(40, 40), 3.0).deviceIndependentSize(), QSizeF(40, 40));
    EXPECT_EQ(icon.pixmap(QSize(40, 40), 1.0).toImage(),
              picture(QStringLiteral("folder"), QSize(40, 40), 1.0).toImage());
}

}  // namespace
}  // namespace tarvin
