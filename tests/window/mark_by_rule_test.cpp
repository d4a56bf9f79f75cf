#include "support/temporary_folder.h"
#include "window/announcements.h"
#include "window/home.h"
#include "window/input.h"
#include "window/program_window.h"
#include "window/scan_steps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {
namespace {

TEST(MarkByRuleWindow, TheLongestPathStays) {
    Home home;
    const std::string documents = home.folder().pathOf("Documents");
    for (const char* name : {"a.jpg", "longer/a.jpg", "b.txt", "longer/b.txt"}) {
        static_cast<void>(home.folder().writeFile(std::string("Documents/") + name,
                                                  std::filesystem::path(name).filename().string()));
    }
    const std::unique_ptr<ChildProcess> product = home.startProduct({documents});
    const ProgramWindow window(product->pid());
    scanAndReview(window);

    input::key("ctrl+r");
    window.waitForText("2 files (0.01 KB) will be marked in 2 sets.");
    // Without an announcement, a text that stays the same would tell nothing.
    Announcements announcements(Announcements::Kind::names);
    input::click(window.wait(ATSPI_ROLE_RADIO_BUTTON, "The longest path").area().middle());
    EXPECT_TRUE(announcements.hear([](const std::vector<std::string>& heard) {
        return std::find(heard.begin(), heard.end(),
                         "2 files (0.01 KB) will be marked in 2 sets.") != heard.end();
    })) << testing::PrintToString(announcements.heard());
    window.waitForButton("Mark", true);
    window.click("Mark");
    window.waitForText("Marked Duplicate Files: 2");
    window.click("Delete");
    window.waitForText("Duplicates Cleaned: 2");

    EXPECT_FALSE(std::filesystem::exists(documents + "/a.jpg"));
    EXPECT_FALSE(std::filesystem::exists(documents + "/b.txt"));
    EXPECT_TRUE(std::filesystem::exists(documents + "/longer/a.jpg"));
    EXPECT_TRUE(std::filesystem::exists(documents + "/longer/b.txt"));
    EXPECT_TRUE(product->runs()) << product->errors();
}

}  // namespace
}  // namespace tarvin
