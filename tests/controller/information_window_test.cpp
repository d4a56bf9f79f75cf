#include "controller/information_window.h"

#include "controller/result_fixture.h"
#include "controls/view_transparent.h"
#include "interface/picture_view.h"

#include <QSignalSpy>

namespace tarvin {
namespace {

/// The information window of the product, after a scan.
class ShownInformation : public ResultFixture {
 protected:
    void SetUp() override {
        for (const char* name : {"a.jpg", "b.mp4", "c.mp3", "d.doc", "e.bin1"}) {
            write(std::string("1") + name, std::string("content of ") + name);
            write(std::string("2") + name, std::string("content of ") + name);
        }
        scan();
    }

    [[nodiscard]] InformationPanel& panel() { return *window().informationWindow; }
};

TEST_F(ShownInformation, HasThePictureOfItsView) {
    EXPECT_EQ(panel().scanInfoImage->pictureName(), QStringLiteral("common_info"));
    click("scanInforOKBtn");
    const std::vector<std::pair<const char*, const char*>> pictures{
        {"imageButton", "image_info"},
        {"videoButton", "video_info"},
        {"audioButton", "Audio_info"},
        {"documentButton", "document_info"},
        {"otherButton", "other_info"}};
    for (const auto& [button, picture] : pictures) {
        click(button);
        EXPECT_EQ(panel().scanInfoImage->pictureName(), QLatin1String(picture));
        EXPECT_EQ(information()[0], "Information");
        EXPECT_EQ(panel().scanInforOKBtn->title(), QStringLiteral("Review"));
        click("scanInforOKBtn");
    }
}

TEST_F(ShownInformation, HasABlueButtonWithAWhiteTitle) {
    const HoverButton& button = *panel().scanInforOKBtn;
    EXPECT_EQ(button.kind(), HoverButton::Kind::filled);
    EXPECT_EQ(button.fill(), QColor(21, 138, 162));
    EXPECT_EQ(button.fill().alpha(), 255);
    EXPECT_EQ(button.cornerRadius(), 0);
    const AttributedTitle title = button.attributedTitle();
    EXPECT_EQ(title.text, QStringLiteral("Review"));
    EXPECT_EQ(title.color, QColor(Qt::white));
    EXPECT_EQ(title.pixelSize, 14);
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Review"));
}

TEST_F(ShownInformation, IsAtItsPositionOverTheCoveredScreen) {
    ASSERT_EQ(window().size(), QSize(1016, 531));
    EXPECT_EQ(panel().geometry().left(), 250);
    EXPECT_EQ(panel().geometry().bottom() + 1, 531 - 200);
    const auto covers = window().findChildren<ViewTransparent*>();
    ASSERT_EQ(covers.size(), 1);
    EXPECT_EQ(covers.front()->geometry(), QRect(0, 0, 1016, 531));
    EXPECT_EQ(window().childAt(panel().geometry().bottomLeft() + QPoint(5, -5)), &panel());
    EXPECT_EQ(window().childAt(20, 20), covers.front());
}

TEST_F(ShownInformation, BlocksClicksOnTheScreenBehind) {
    QTest::mouseClick(window().windowHandle(), Qt::LeftButton, {},
                      control("imageButton")->mapTo(&window(), QPoint(20, 10)));
    EXPECT_TRUE(delegate->results().tabs().allTab);
    EXPECT_EQ(information()[0], "Duplicates Found");
}

/// The information window by itself.
class InformationWindowTest : public ::testing::Test {
 protected:
    InformationWindowTest() {
        window_.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_, 20000));
    }

    void fill(const char* picture) {
        information_.setInformationWindowWithInformationHeader(
            QStringLiteral("Header"), QStringLiteral("first"), QStringLiteral("second"),
            QStringLiteral("third"), QLatin1String(picture), QStringLiteral("Go"));
    }

    [[nodiscard]] InformationPanel& panel() { return *window_.informationWindow; }
    [[nodiscard]] qsizetype covers() { return window_.findChildren<ViewTransparent*>().size(); }

    MainWindow window_;
    InformationWindow information_{window_};
    QSignalSpy closed_{&information_, &InformationWindow::closed};
};

TEST_F(InformationWindowTest, PutsEachTextInItsPlace) {
    fill("video_info");
    EXPECT_TRUE(panel().isVisible());
    EXPECT_EQ(panel().informationHeader->text(), QStringLiteral("Header"));
    EXPECT_EQ(panel().scanInfoCount->text(), QStringLiteral("first"));
    EXPECT_EQ(panel().scanInfoSize->text(), QStringLiteral("second"));
    EXPECT_EQ(panel().scanOtherInfo->text(), QStringLiteral("third"));
    EXPECT_EQ(panel().scanInfoImage->pictureName(), QStringLiteral("video_info"));
    EXPECT_EQ(panel().scanInforOKBtn->title(), QStringLiteral("Go"));
}

TEST_F(InformationWindowTest, IsShownWithoutAnImageOfThatName) {
    fill("nowhere");
    EXPECT_TRUE(panel().isVisible());
    const QImage without = panel().scanInfoImage->grab().toImage();
    fill("video_info");
    EXPECT_NE(panel().scanInfoImage->grab().toImage(), without);
    fill("");
    EXPECT_EQ(panel().scanInfoImage->grab().toImage(), without);
}

TEST_F(InformationWindowTest, RemovesOneCoverWhenClosed) {
    fill("video_info");
    fill("image_info");
    ASSERT_EQ(covers(), 2);
    QTest::mouseClick(panel().scanInforOKBtn, Qt::LeftButton);
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(covers(), 1);
    EXPECT_EQ(closed_.size(), 1);
    information_.okInformationWindow();
    EXPECT_EQ(covers(), 0);
}

}  // namespace
}  // namespace tarvin
