#include "window/virtual_desktop.h"

#include <atspi/atspi.h>
#include <gtest/gtest.h>

#include <memory>

namespace {

/// One desktop for all tests of the process.
class DesktopOfTests final : public testing::Environment {
 public:
    void SetUp() override {
        desktop_ = std::make_unique<tarvin::VirtualDesktop>();
        ASSERT_EQ(atspi_init(), 0);
    }

    void TearDown() override {
        atspi_exit();
        desktop_.reset();
    }

 private:
    std::unique_ptr<tarvin::VirtualDesktop> desktop_;
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::AddGlobalTestEnvironment(new DesktopOfTests);
    return RUN_ALL_TESTS();
}
