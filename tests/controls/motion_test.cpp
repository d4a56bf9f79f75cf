#include "controls/motion.h"

#include "controls/control_fixture.h"
#include "support/logged.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

TEST(LoopClock, StoppingOneThatDoesNotRunLogsNothing) {
    ControlFixture fixture;
    auto& owner = fixture.add<QWidget>(QRect(20, 20, 10, 10));
    LoopClock clock(owner, 1000);
    const Logged logged;
    clock.stop();
    EXPECT_FALSE(clock.isRunning());
    EXPECT_EQ(Logged::lines, QStringList());
}

}  // namespace
}  // namespace tarvin
