#include "controls/notice_strip.h"

#include "controls/control_fixture.h"
#include "controls/look.h"

#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

namespace tarvin {
namespace {

class NoticeStripTest : public testing::Test {
 protected:
    NoticeStripTest()
        : strip(fixture.add<NoticeStrip>(QRect(10, 20, 280, NoticeStrip::fixedHeight),
                                         QStringLiteral("ui/not_read"), QStringLiteral("Show…"))) {}

    ControlFixture fixture{look::topBar};
    NoticeStrip& strip;
};

TEST_F(NoticeStripTest, IsAsWideAsItsTextsUpToItsMaximum) {
    EXPECT_EQ(strip.sizeHint(), QSize(0, 29));
    strip.setMessage(QStringLiteral("3 files"));
    const int shorter = strip.sizeHint().width();
    strip.setMessage(QStringLiteral("3 files and more"));
    EXPECT_GT(shorter, 100);
    EXPECT_GT(strip.sizeHint().width(), shorter);
    strip.setMessage(QStringLiteral("a long message ").repeated(20));
    EXPECT_EQ(strip.sizeHint(), QSize(640, 29));
    strip.setMessage({});
    EXPECT_EQ(strip.sizeHint(), QSize(0, 29));
}

TEST_F(NoticeStripTest, HasTheWholeTextAsItsName) {
    strip.setMessage(QStringLiteral("3 files could not be read."));
    EXPECT_EQ(strip.text(), QStringLiteral("3 files could not be read."));
    EXPECT_EQ(strip.accessibleName(), QStringLiteral("3 files could not be read. Show…"));
    strip.setMessage({});
    EXPECT_EQ(strip.accessibleName(), QStringLiteral("Show…"));
}

TEST_F(NoticeStripTest, IsPaintedOnTheBandOfNotices) {
    strip.setMessage(QStringLiteral("3 files"));
    const QRect area(10, 20, strip.sizeHint().width(), 29);
    strip.setGeometry(area);
    EXPECT_THAT(fixture.at(11, 21), IsRgb(105, 193, 243));
    EXPECT_THAT(fixture.at(area.right() - 1, 47), IsRgb(105, 193, 243));
    const QColor ink(20, 36, 46);
    EXPECT_TRUE(fixture.holds({18, 25, 18, 18}, ink));                  // the image
    EXPECT_TRUE(fixture.holds({44, 20, 40, 29}, ink));                  // the message
    EXPECT_TRUE(fixture.holds({area.right() - 50, 38, 38, 6}, ink));    // the line below "Show…"
    EXPECT_FALSE(fixture.holds({area.right() - 11, 20, 11, 29}, ink));  // the padding
}

TEST_F(NoticeStripTest, FadesAndShowsAHandWhileHovered) {
    strip.setMessage(QStringLiteral("3 files"));
    strip.setGeometry({{10, 20}, strip.sizeHint()});
    fixture.movePointerTo(strip);
    EXPECT_EQ(strip.alpha(), 0.7);
    EXPECT_EQ(fixture.cursor(), Qt::PointingHandCursor);
    fixture.movePointerAway();
    EXPECT_EQ(strip.alpha(), 1.0);
}

TEST_F(NoticeStripTest, IsDarkerWhileHeldDown) {
    strip.setMessage(QStringLiteral("3 files"));
    strip.setDown(true);
    EXPECT_THAT(fixture.at(11, 21), IsRgb(92, 170, 214));
}

TEST_F(NoticeStripTest, AMouseClickOrAKeyPressesIt) {
    strip.setMessage(QStringLiteral("3 files"));
    const QSignalSpy clicks(&strip, &QAbstractButton::clicked);
    QTest::mouseClick(&strip, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 1);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        QTest::keyClick(&strip, key);
    }
    EXPECT_EQ(clicks.size(), 3);
}

TEST_F(NoticeStripTest, ATipShowsTheMessageOnlyIfItIsShortened) {
    const auto tip = [this] {
        QToolTip::hideText();
        const QPoint middle = strip.rect().center();
        QHelpEvent help(QEvent::ToolTip, middle, strip.mapToGlobal(middle));
        QCoreApplication::sendEvent(&strip, &help);
        return QToolTip::text();
    };
    strip.setMessage(QStringLiteral("3 files"));
    EXPECT_FALSE(strip.isElided());
    EXPECT_EQ(tip(), QString());
    strip.setMessage(QStringLiteral("one of many words ").repeated(6));
    EXPECT_TRUE(strip.isElided());
    EXPECT_TRUE(tip().contains(QStringLiteral("one of many words"))) << tip().toStdString();
    QToolTip::hideText();
}

TEST_F(NoticeStripTest, ItsOwnWidthIsEnoughForItsTexts) {
    strip.setMessage(QStringLiteral("3 folders and 12 files"));
    strip.resize(strip.sizeHint());
    EXPECT_FALSE(strip.isElided());
    strip.resize(strip.width() - 2, strip.height());
    EXPECT_TRUE(strip.isElided());
}

}  // namespace
}  // namespace tarvin
