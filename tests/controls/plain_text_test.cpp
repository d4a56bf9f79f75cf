#include "controls/plain_text.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

TEST(PlainText, AToolTipWithoutMarkupStaysAsItIs) {
    EXPECT_EQ(plainToolTip(QStringLiteral("/home/me & you/a < b.txt")),
              QStringLiteral("/home/me & you/a < b.txt"));
}

TEST(PlainText, AToolTipThatLooksLikeMarkupIsShownUnchanged) {
    EXPECT_EQ(plainToolTip(QStringLiteral("<i>x</i>")),
              QStringLiteral("<span style=\"white-space:pre\">&lt;i&gt;x&lt;/i&gt;</span>"));
}

TEST(PlainText, ControlCharactersBecomeSpaces) {
    EXPECT_EQ(singleLine(QStringLiteral("a\nb\tc\rd")), QStringLiteral("a b c d"));
    EXPECT_EQ(singleLine(QStringLiteral("a\u2028b\u2029c")), QStringLiteral("a b c"));
    EXPECT_EQ(singleLine(QStringLiteral("plain  text")), QStringLiteral("plain  text"));
}

}  // namespace
}  // namespace tarvin
