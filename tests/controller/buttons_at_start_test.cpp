#include "controller/product_fixture.h"
#include "controls/button_hover_complex.h"
#include "controls/button_hover_simple.h"
#include "controls/hover_button.h"
#include "interface/home_screen.h"
#include "interface/location_screen.h"
#include "interface/result_screen.h"

namespace tarvin {
namespace {

class ButtonsAtStart : public ProductFixture {
 protected:
    void SetUp() override { launch(); }
};

TEST_F(ButtonsAtStart, HelpIsWhiteAndOf13Pixels) {
    const AttributedTitle title = window().buttonHelpManual->attributedTitle();
    EXPECT_EQ(title.text, QStringLiteral("Help"));
    EXPECT_EQ(title.color, QColor(255, 255, 255));
    EXPECT_EQ(title.pixelSize, 13);
    EXPECT_EQ(title.alignment, std::nullopt);
}

TEST_F(ButtonsAtStart, BothHomeButtonsHaveTheirFourPictures) {
    for (const ButtonHoverSimple* home :
         {window().locations->buttonHomeExactPage, window().results->buttonHomePage}) {
        EXPECT_EQ(home->normalImage().name(), QStringLiteral("Home Normal.png"));
        EXPECT_EQ(home->hoverImage().name(), QStringLiteral("Home Hover.png"));
        EXPECT_EQ(home->disabledImage().name(), QStringLiteral("Home Normal Disabled.png"));
        EXPECT_EQ(home->onClickImage().name(), QStringLiteral("Back Onclick.png"));
        EXPECT_EQ(home->image().name(), QStringLiteral("Home Normal.png"));
        EXPECT_TRUE(home->resetImageWhenNotHovering());
    }
}

TEST_F(ButtonsAtStart, EachTileHasItsOwnPicture) {
    EXPECT_EQ(window().home->mainScanButton->normalImage().name(),
              QStringLiteral("ui/tile_drives"));
    EXPECT_EQ(window().home->mainScanButtonFolder->normalImage().name(),
              QStringLiteral("ui/tile_folders"));
}

}  // namespace
}  // namespace tarvin
