#include "support/waiting.h"
#include "window/drop.h"
#include "window/home.h"
#include "window/input.h"
#include "window/location_rows.h"
#include "window/program_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace tarvin {
namespace {

bool comesToFront(const ChildProcess& program) {
    return waitUntil([&] { return input::processInFront() == program.pid(); });
}

/// Counts changes of the window manager's list of windows.
class WindowLists final {
 public:
    WindowLists()
        : watch_({"xprop", "-root", "-spy", "_NET_CLIENT_LIST"}, folder_.pathOf("windows")) {
        EXPECT_FALSE(watch_.firstLine().empty());
    }

    /// The number of windows that appeared or disappeared.
    [[nodiscard]] int changes() const {
        std::istringstream lines(watch_.output());
        std::string before;
        std::getline(lines, before);
        int changes = 0;
        for (std::string line; std::getline(lines, line); before = line) {
            changes += line == before ? 0 : 1;
        }
        return changes;
    }

 private:
    TemporaryFolder folder_;
    ChildProcess watch_;
};

TEST(Instances, ThatExitForTheRunningOneShowNoWindow) {
    Home home;
    const auto first = home.startProduct();
    const ProgramWindow window(first->pid());
    const WindowLists windows;
    std::vector<std::unique_ptr<ChildProcess>> instances;
    for (int number = 0; number < 4; ++number) {
        instances.push_back(home.startProduct());
    }
    for (const auto& instance : instances) {
        EXPECT_EQ(instance->wait(), 0) << instance->errors();
    }
    // One more change, which arrives after all others.
    const TemporaryFolder folder;
    const ChildProcess other({dropSource(), "text/plain", folder.writeFile("content", "")},
                             folder.pathOf("other"));
    ASSERT_TRUE(comesToFront(other));
    ASSERT_TRUE(waitUntil([&] { return windows.changes() > 0; }));
    EXPECT_EQ(windows.changes(), 1);
    EXPECT_TRUE(first->runs());
}

TEST(Instances, OfThreeStartedAtOnceOneShowsAWindow) {
    Home home;
    const WindowLists windows;
    std::vector<std::unique_ptr<ChildProcess>> instances;
    for (int number = 0; number < 3; ++number) {
        instances.push_back(home.startProduct());
    }
    ASSERT_TRUE(waitUntil([&] {
        return std::count_if(instances.begin(), instances.end(),
                             [](const auto& instance) { return instance->runs(); }) == 1;
    }));
    ASSERT_TRUE(waitUntil([&] { return windows.changes() > 0; }));
    EXPECT_EQ(windows.changes(), 1);
}

TEST(Instances, TwoLaterOnesLeaveOneNotice) {
    Home home;
    const std::string films = home.folder().makeFolder("Films");
    const auto first = home.startProduct();
    const ProgramWindow window(first->pid());
    window.click("Scan Drives");
    window.waitForText("Choose Locations");
    const std::string notice = "To scan other folders, return to the start screen first.";
    for (int number = 0; number < 2; ++number) {
        EXPECT_EQ(home.startProduct({films})->wait(), 0);
        window.waitForText(notice);
    }
    window.click("Ok");
    window.waitForEnd(notice);
}

TEST(Instances, TheSecondRaisesTheFirstAndExits) {
    Home home;
    const auto first = home.startProduct();
    const ProgramWindow window(first->pid());
    const TemporaryFolder folder;
    const ChildProcess other({dropSource(), "text/plain", folder.writeFile("content", "")},
                             folder.pathOf("other"));
    ASSERT_TRUE(comesToFront(other));

    const auto second = home.startProduct();
    EXPECT_EQ(second->wait(), 0) << second->errors();
    EXPECT_TRUE(comesToFront(*first));
    EXPECT_TRUE(first->runs());
}

TEST(Instances, TheSecondRestoresTheMinimizedFirst) {
    Home home;
    const auto first = home.startProduct();
    const ProgramWindow window(first->pid());
    ASSERT_TRUE(comesToFront(*first));
    input::minimize();
    ASSERT_TRUE(waitUntil([&] { return input::processInFront() != first->pid(); }));

    EXPECT_EQ(home.startProduct()->wait(), 0);
    EXPECT_TRUE(comesToFront(*first));
    window.waitForText("Find duplicate files");
}

TEST(Instances, TheSecondRestoresTheMaximizedFirst) {
    Home home;
    const auto first = home.startProduct();
    const ProgramWindow window(first->pid());
    ASSERT_TRUE(comesToFront(*first));
    const Accessible frame = window.wait(ATSPI_ROLE_FILLER, "Tarvin Duplicate File Remover");
    const Area small = frame.area();
    constexpr int titleBarAbove = 10;
    input::doubleClick({small.middle().x, small.y - titleBarAbove});
    ASSERT_TRUE(waitUntil([&] { return frame.area().width == input::screenWidth; }));
    const Area large = frame.area();
    input::minimize();
    ASSERT_TRUE(waitUntil([&] { return input::processInFront() != first->pid(); }));

    EXPECT_EQ(home.startProduct()->wait(), 0);
    EXPECT_TRUE(comesToFront(*first));
    EXPECT_EQ(frame.area().width, large.width);
    EXPECT_EQ(frame.area().height, large.height);
}

TEST(Instances, OfThreeStartedAtOnceOneStays) {
    Home home;
    std::vector<std::unique_ptr<ChildProcess>> instances;
    for (int number = 0; number < 3; ++number) {
        instances.push_back(home.startProduct());
    }
    const auto running = [&] {
        return std::count_if(instances.begin(), instances.end(),
                             [](const auto& instance) { return instance->runs(); });
    };
    ASSERT_TRUE(waitUntil([&] { return running() == 1; }));
    for (const auto& instance : instances) {
        if (instance->runs()) {
            const ProgramWindow window(instance->pid());
            window.click("Scan Folders");
            window.waitForText("Choose Locations");
        } else {
            EXPECT_EQ(instance->wait(), 0) << instance->errors();
        }
    }
}

TEST(CommandLine, ChecksFoldersAndReportsOtherArguments) {
    Home home;
    const std::string films = home.folder().makeFolder("Films");
    const std::string file = home.folder().writeFile("letter.txt", "Dear");
    const auto product = home.startProduct({films, file});
    const ProgramWindow window(product->pid());
    window.waitForText("Choose Locations");
    EXPECT_TRUE(LocationRows(window).isChecked("Films"));
    EXPECT_FALSE(LocationRows(window).has("letter.txt"));
    window.waitForButton("Scan", true);
    EXPECT_EQ(product->errors(),
              "tarvin-duplicate-file-remover: cannot add '" + file + "': Not a directory\n");
}

}  // namespace
}  // namespace tarvin
