#include "window/home.h"
#include "window/input.h"
#include "window/program_window.h"
#include "window/scan_steps.h"

#include <gtest/gtest.h>

#include <memory>

namespace tarvin {
namespace {

/// The key of the window manager that closes a window.
constexpr const char* closingKeys = "alt+F4";

TEST(Closing, OnTheHomeScreenExits) {
    Home home;
    const auto product = home.startProduct();
    const ProgramWindow window(product->pid());
    window.waitForText("Find duplicate files");
    input::key(closingKeys);
    EXPECT_EQ(product->wait(), 0) << product->errors();
}

TEST(Closing, OnTheLocationScreenExits) {
    Home home;
    const auto product = home.startProduct();
    const ProgramWindow window(product->pid());
    window.click("Scan Drives");
    window.waitForText("Choose Locations");
    input::key(closingKeys);
    EXPECT_EQ(product->wait(), 0) << product->errors();
}

TEST(Closing, DuringAScanIsRefusedUntilTheScanIsStopped) {
    constexpr const char* refusal = "A operation is in progress. Please stop the current process.";
    Home home;
    const auto product = home.startProduct({makeEndlessFolder(home, "Films")});
    const ProgramWindow window(product->pid());
    window.click("Scan");
    waitForProgress(window);
    input::key(closingKeys);
    window.waitForText(refusal);
    EXPECT_TRUE(timeStandsStill(window));
    window.click("Ok");
    window.waitForEnd(refusal);
    waitForProgress(window);

    window.click("Stop");
    window.click("Yes");
    window.waitForText("Duplicate Files");
    input::key(closingKeys);
    EXPECT_EQ(product->wait(), 0) << product->errors();
}

}  // namespace
}  // namespace tarvin
