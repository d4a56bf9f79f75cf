#include "support/temporary_folder.h"
#include "support/waiting.h"
#include "window/child_process.h"
#include "window/home.h"
#include "window/input.h"
#include "window/program_window.h"
#include "window/result_rows.h"
#include "window/scan_steps.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

namespace tarvin {
namespace {

TEST(ExportWindow, TheTerminalMovesExactlyTheMarkedFilesOfAnExportedList) {
    Home home;
    const std::string documents = home.folder().pathOf("Documents");
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg", "d.txt", "e.txt"}) {
        static_cast<void>(home.folder().writeFile(
            std::string("Documents/") + name, std::filesystem::path(name).extension().string()));
    }
    const std::unique_ptr<ChildProcess> product = home.startProduct({documents});
    const ProgramWindow window(product->pid());
    scanAndReview(window);
    const OutlineRows outline(window);
    const FileRows files(window);
    outline.click(1);
    ASSERT_TRUE(waitUntil([&] { return files.count() == 3; }));
    const std::string marked = files.path(1);
    files.clickCheckBox(1);
    window.waitForText("Marked Duplicate Files: 1");

    input::key("ctrl+e");
    window.waitForText("File name:");
    input::key("ctrl+a");
    for (const char* letter : {"s", "e", "t", "s", "period", "j", "s", "o", "n"}) {
        input::key(letter);
    }
    input::key("Return");
    window.waitForText("2 sets exported.");

    const std::string list = documents + "/sets.json";
    ChildProcess terminal(
        {TARVIN_TERMINAL_PROGRAM, "clean", "--yes", "--from", list},
        home.folder().pathOf(".terminal"),
        {{"HOME", home.folder().path()}, {"XDG_DATA_HOME", home.folder().pathOf(".local/share")}});
    EXPECT_EQ(terminal.wait(), 0) << terminal.errors();
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg", "d.txt", "e.txt"}) {
        const std::string path = documents + '/' + name;
        EXPECT_EQ(std::filesystem::exists(path), path != marked) << path;
    }
    EXPECT_TRUE(product->runs()) << product->errors();
}

}  // namespace
}  // namespace tarvin
