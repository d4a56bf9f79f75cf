#include "support/waiting.h"
#include "window/drop.h"
#include "window/home.h"
#include "window/input.h"
#include "window/location_rows.h"
#include "window/program_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace tarvin {
namespace {

bool comesToFront(const ChildProcess& program) {
    return waitUntil([&] { return input::processInFront() == program.pid(); });
}

TEST(Copies, TheSecondBringsTheFirstToTheFrontAndEnds) {
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

TEST(Copies, TheSecondBringsBackTheFirstFromItsIcon) {
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

TEST(Copies, OfThreeStartedAtOnceOneStays) {
    Home home;
    std::vector<std::unique_ptr<ChildProcess>> copies;
    for (int number = 0; number < 3; ++number) {
        copies.push_back(home.startProduct());
    }
    const auto running = [&] {
        return std::count_if(copies.begin(), copies.end(),
                             [](const auto& copy) { return copy->runs(); });
    };
    ASSERT_TRUE(waitUntil([&] { return running() == 1; }));
    for (const auto& copy : copies) {
        if (copy->runs()) {
            const ProgramWindow window(copy->pid());
            window.click("Scan Folders");
            window.waitForText("Choose Locations");
        } else {
            EXPECT_EQ(copy->wait(), 0) << copy->errors();
        }
    }
}

TEST(CommandLine, FoldersOpenTheListCheckedAndTheRestIsComplainedOf) {
    Home home;
    const std::string films = home.folder().makeFolder("Films");
    const std::string file = home.folder().writeFile("letter.txt", "Dear");
    const auto product = home.startProduct({films, file});
    const ProgramWindow window(product->pid());
    window.waitForText("Choose Locations");
    EXPECT_TRUE(LocationRows(window).isChecked("Films"));
    EXPECT_FALSE(LocationRows(window).has("letter.txt"));
    window.waitForButton("Scan", true);
    EXPECT_EQ(product->errors(), file + ": Not a directory\n");
}

}  // namespace
}  // namespace tarvin
