#include "controller/home_image.h"
#include "controller/product_fixture.h"
#include "controls/button_hover_complex.h"
#include "controls/button_hover_simple.h"
#include "controls/hover_button.h"
#include "controls/images.h"
#include "interface/home_screen.h"
#include "interface/location_screen.h"
#include "interface/result_screen.h"
#include "interface/text_block.h"

#include <QAction>
#include <filesystem>

namespace tarvin {
namespace {

/// The effects of the start and of returning home on controls and stored settings.
class StartAndHome : public ProductFixture {
 protected:
    void SetUp() override { launch(); }

    [[nodiscard]] static QImage imageOf(const QIcon& icon) {
        return icon.pixmap(QSize(45, 45)).toImage();
    }
    [[nodiscard]] static QImage drawing(const char* name) {
        return imageOf(pictureIcon(QLatin1String(name)));
    }

    void expectHomeImages(const ButtonHoverSimple& button) {
        EXPECT_EQ(imageOf(button.normalImage()), drawing("Home Normal.png"));
        EXPECT_EQ(imageOf(button.hoverImage()), drawing("Home Hover.png"));
        EXPECT_EQ(imageOf(button.disabledImage()), drawing("Home Normal Disabled.png"));
        EXPECT_EQ(imageOf(button.onClickImage()), drawing("Back Onclick.png"));
        EXPECT_TRUE(button.resetImageWhenNotHovering());
    }
};

TEST_F(StartAndHome, GivesBothHomeButtonsTheirFourPictures) {
    const char* const names[] = {"Home Normal.png", "Home Hover.png", "Home Normal Disabled.png",
                                 "Back Onclick.png"};
    for (const char* one : names) {
        ASSERT_FALSE(drawing(one).isNull()) << one;
        for (const char* other : names) {
            EXPECT_EQ(drawing(one) == drawing(other), one == other) << one << ", " << other;
        }
    }
    expectHomeImages(*window().locations->buttonHomeExactPage);
    expectHomeImages(*window().results->buttonHomePage);
}

TEST_F(StartAndHome, ShowsTheNormalHomeImageAfterHovering) {
    click("mainScanButton");
    ButtonHoverSimple& button = *window().locations->buttonHomeExactPage;
    QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QCoreApplication::sendEvent(&button, &enter);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&button, &leave);
    EXPECT_EQ(imageOf(button.image()), drawing("Home Normal.png"));
}

TEST_F(StartAndHome, GivesTheButtonOfTheListItsPicturesAgain) {
    const QIcon other = pictureIcon(QStringLiteral("folder.png"));
    ButtonHoverSimple& ofList = *window().locations->buttonHomeExactPage;
    ButtonHoverSimple& ofResults = *window().results->buttonHomePage;
    for (ButtonHoverSimple* button : {&ofList, &ofResults}) {
        button->setImageNormal(other, other, other, other);
    }
    delegate->buttonHomePageClicked();
    delegate->buttonHomeSimilarPageClicked();
    EXPECT_EQ(imageOf(ofList.normalImage()), imageOf(other));
    delegate->buttonHomeExactPageClicked();
    expectHomeImages(ofList);
    EXPECT_EQ(imageOf(ofResults.normalImage()), imageOf(other));
}

TEST_F(StartAndHome, BeginsWithoutTotalsOfMarks) {
    delegate->session().totalSize = 5;
    delegate->session().totalSelected = 6;
    delegate->initializeArrays();
    EXPECT_EQ(delegate->session().totalSize, 0U);
    EXPECT_EQ(delegate->session().totalSelected, 0U);
}

TEST_F(StartAndHome, HasTheDeleteButtonOn) {
    HoverButton& button = *window().results->finishButton;
    EXPECT_TRUE(button.isEnabledTo(window().results));
    EXPECT_EQ(button.alpha(), 1.0);
    button.setEnabled(false);
    button.setAlpha(0.6);
    delegate->homeCleanup();
    EXPECT_TRUE(button.isEnabledTo(window().results));
    EXPECT_EQ(button.alpha(), 1.0);
}

TEST_F(StartAndHome, StoresNothingAtTheEndButThePicture) {
    const std::string data = folder.pathOf("support/data.plist");
    std::filesystem::remove(data);
    EXPECT_TRUE(window().close());
    delegate.reset();
    EXPECT_EQ(settings.allKeys(), QStringList{QString(homeImageKey)});
    EXPECT_FALSE(std::filesystem::exists(data));
    EXPECT_FALSE(std::filesystem::exists(folder.pathOf("support/exception.plist")));
}

TEST_F(StartAndHome, OffersNoGuideWhereThereIsNone) {
    EXPECT_FALSE(window().helpMenuItem->isEnabled());
    delegate->help().helpMenuClicked();
    EXPECT_TRUE(desktop.paths.empty());
}

TEST_F(StartAndHome, EntersTheListForIdenticalFiles) {
    window().home->cleanHistory->show();
    delegate->session().similar = true;
    window().home->mainScanButton->setAlpha(0.5);
    window().home->mainScanButtonFolder->setAlpha(0.5);
    delegate->locations().buttonScanDriveClicked();
    EXPECT_TRUE(delegate->session().exact);
    EXPECT_FALSE(delegate->session().similar);
    EXPECT_TRUE(window().home->cleanHistory->isHidden());
    EXPECT_EQ(window().home->mainScanButton->alpha(), 1.0);
    EXPECT_EQ(window().home->mainScanButtonFolder->alpha(), 1.0);
}

}  // namespace
}  // namespace tarvin
