#include "interface/enabled_together.h"

#include "controls/hover_button.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tarvin {

namespace {

/// Two buttons that replace each other, and another one between them in the tab order.
class EnabledTogether : public testing::Test {
 protected:
    EnabledTogether() {
        first.setFocusAfterDisabling({&second});
        second.setFocusAfterDisabling({&first});
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 20'000));
    }

    QWidget window;
    HoverButton first{&window};
    HoverButton between{&window};
    HoverButton second{&window};
};

TEST_F(EnabledTogether, TheFocusMovesToTheButtonEnabledInTheSameStep) {
    second.setEnabled(false);
    first.setFocus();
    setEnabledTogether({{&first, false}, {&second, true}});
    EXPECT_EQ(window.focusWidget(), &second);
    setEnabledTogether({{&second, false}, {&first, true}});
    EXPECT_EQ(window.focusWidget(), &first);
}

TEST_F(EnabledTogether, AControlWithoutAStateDoesNotChange) {
    second.setEnabled(false);
    setEnabledTogether({{&first, std::nullopt}, {&second, std::nullopt}});
    EXPECT_TRUE(first.isEnabled());
    EXPECT_FALSE(second.isEnabled());
}

}  // namespace

}  // namespace tarvin
