#include "controls/attributed_title.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

TEST(AttributedTitle, OfSetAttributesHasColourAndSizeAlone) {
    const AttributedTitle title = setAttributes(Qt::red, QStringLiteral("Help"), 13);
    EXPECT_EQ(title.text, QStringLiteral("Help"));
    EXPECT_EQ(title.color, QColor(255, 0, 0));
    EXPECT_EQ(title.pixelSize, 13);
    EXPECT_EQ(title.alignment, std::nullopt);
    EXPECT_FALSE(title.underline);
}

TEST(AttributedTitle, OfSetCenterAttributesIsCentred) {
    const AttributedTitle title = setCenterAttributes(Qt::red, QStringLiteral("Scan"), 14);
    EXPECT_EQ(title.text, QStringLiteral("Scan"));
    EXPECT_EQ(title.color, QColor(255, 0, 0));
    EXPECT_EQ(title.pixelSize, 14);
    EXPECT_EQ(title.alignment, Qt::AlignHCenter);
    EXPECT_FALSE(title.underline);
}

}  // namespace
}  // namespace tarvin
