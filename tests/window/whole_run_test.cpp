#include "support/waiting.h"
#include "window/drop.h"
#include "window/home.h"
#include "window/input.h"
#include "window/location_rows.h"
#include "window/program_window.h"
#include "window/scan_steps.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

constexpr const char* stopQuestion = "Are you sure, you want to stop this process?";

void enterFolders(const ProgramWindow& window) {
    window.waitForText("Find duplicate files");
    window.click("Scan Folders");
}

void goHome(const ProgramWindow& window) {
    window.click("Home");
    window.waitForText("Find duplicate files");
}

TEST(WholeRun, ReturnsHomeAfterAStoppedScan) {
    Home home;
    const std::string endless = makeEndlessFolder(home, "Films");
    const auto product = home.startProduct();
    const ProgramWindow window(product->pid());

    enterFolders(window);
    const LocationRows rows(window);
    EXPECT_FALSE(window.isEnabled("Scan"));
    dropFiles({endless}, rows.dropSpot());
    ASSERT_TRUE(rows.has("Films"));
    EXPECT_TRUE(rows.isChecked("Films"));
    window.waitForButton("Scan", true);
    rows.clickCheckBox("Films");
    window.waitForButton("Scan", false);
    EXPECT_FALSE(rows.isChecked("Films"));
    rows.clickCheckBox("Desktop");
    window.waitForButton("Scan", true);
    EXPECT_TRUE(rows.isChecked("Desktop"));
    rows.clickCheckBox("Films");
    EXPECT_TRUE(waitUntil([&] { return rows.isChecked("Films"); }));

    window.click("Scan");
    window.waitForText("Searching for duplicate files...");
    waitForProgress(window);
    window.click("Pause");
    window.waitForButton("Resume", true);
    window.waitForButton("Stop", false);
    EXPECT_TRUE(timeStandsStill(window));
    window.click("Resume");
    window.waitForButton("Pause", true);
    waitForProgress(window);

    window.click("Stop");
    window.waitForText(stopQuestion);
    window.click("No");
    window.waitForEnd(stopQuestion);
    window.waitForButton("Pause", true);
    waitForProgress(window);
    window.click("Stop");
    window.waitForText(stopQuestion);
    window.click("Yes");
    window.waitForText("Duplicate Files");
    // Nothing was found, so the button of the summary leads back.
    window.click("Review");
    window.waitForText("Find duplicate files");
    EXPECT_TRUE(product->runs());
}

TEST(WholeRun, ScansASmallFolderToTheEnd) {
    Home home;
    const std::string folder = makeSmallFolder(home, "Letters");
    const auto product = home.startProduct();
    const ProgramWindow window(product->pid());
    for (int round = 0; round < 2; ++round) {
        enterFolders(window);
        const LocationRows rows(window);
        dropFiles({folder}, rows.dropSpot());
        ASSERT_TRUE(rows.has("Letters"));
        window.click("Scan");
        window.waitForText("Duplicate Files");
        window.click("Review");
        window.waitForEnd("Duplicates Found");
        goHome(window);
    }
    EXPECT_TRUE(product->runs());
}

/// The Stop button appears where Scan was.
TEST(WholeRun, IsNotStoppedByADoubleClickOnScan) {
    Home home;
    const auto product = home.startProduct({makeEndlessFolder(home, "Films")});
    const ProgramWindow window(product->pid());
    window.waitForButton("Scan", true);
    const Area scan = window.wait(ATSPI_ROLE_PUSH_BUTTON, "Scan").area();
    const Spot spot{scan.x + scan.width * 3 / 4, scan.y + scan.height / 2};
    input::doubleClick(spot);
    const Area stop = window.wait(ATSPI_ROLE_PUSH_BUTTON, "Stop").area();
    EXPECT_TRUE(stop.x < spot.x && spot.x < stop.x + stop.width);
    waitForProgress(window);
    EXPECT_FALSE(window.showsText(stopQuestion));
    input::click(spot);
    window.waitForText(stopQuestion);
    window.click("Yes");
    window.waitForText("Duplicate Files");
}

TEST(WholeRun, ReportsThatThereIsNothingToCompare) {
    Home home;
    const auto product = home.startProduct();
    const ProgramWindow window(product->pid());
    enterFolders(window);
    LocationRows(window).clickCheckBox("Documents");
    window.click("Scan");
    window.waitForText("No duplicates File found");
    window.click("Ok");
    window.waitForText("Find duplicate files");
    EXPECT_TRUE(product->runs());
}

}  // namespace
}  // namespace tarvin
