#include "controller/product_fixture.h"
#include "interface/location_screen.h"
#include "interface/location_table.h"
#include "interface/notice_panel.h"

namespace tarvin {
namespace {

using LocationNoticeTest = ProductFixture;

TEST_F(LocationNoticeTest, StandsAt220And50OfTheRows) {
    launch();
    click("mainScanButtonFolder");
    panels.choice = {{folder.pathOf("Pictures")}};
    click("addFolders");
    ASSERT_TRUE(window().runningAlert->isVisible());
    EXPECT_EQ(window().runningAlert->pos(),
              window().locations->tableExact->viewport()->mapTo(&window(), QPoint(220, 50)));
    EXPECT_EQ(window().runningAlert->pos(), QPoint(275, 184));
}

}  // namespace
}  // namespace tarvin
