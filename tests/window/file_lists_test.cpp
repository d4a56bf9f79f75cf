#include "support/waiting.h"
#include "window/copies.h"
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

/// A scan of two locations, of which one is gone when it begins.
TEST(UnreadableLocation, IsToldInTheBarAndListed) {
    Home home;
    const std::string documents = home.folder().pathOf("Documents");
    const std::string gone = home.folder().makeFolder("gone");
    writeCopies(documents, {{"jpg", 4, 2}});
    const std::unique_ptr<ChildProcess> product = home.startProduct({documents, gone});
    const ProgramWindow window(product->pid());
    window.waitForButton("Scan", true);
    std::filesystem::remove(gone);

    scanAndReview(window);
    window.click("1 folder could not be read. Show…");
    window.waitForText("Could Not Be Read");
    const Accessible list =
        window.wait(ATSPI_ROLE_TABLE, "Folders and files that could not be read");
    ASSERT_EQ(list.rows(), 1);
    EXPECT_EQ(list.cell(0, 0)->name(), "gone");
    EXPECT_EQ(list.cell(0, 0)->description(), "Folder");
    EXPECT_EQ(list.cell(0, 1)->name(), home.folder().path());
    EXPECT_EQ(list.cell(0, 2)->name(), "Not there any more");
    window.click("Copy List");
    window.click("Close");
    window.waitForEnd("Could Not Be Read");

    window.click("Home");
    window.waitForText("Find duplicate files");
    EXPECT_FALSE(window.shows(ATSPI_ROLE_PUSH_BUTTON, "1 folder could not be read. Show…"));
    EXPECT_TRUE(product->runs()) << product->errors();
}

TEST(UnreadableLocation, IsListedAfterAScanWithoutFilesToo) {
    Home home;
    const std::string gone = home.folder().makeFolder("gone");
    const std::unique_ptr<ChildProcess> product = home.startProduct({gone});
    const ProgramWindow window(product->pid());
    window.waitForButton("Scan", true);
    std::filesystem::remove(gone);
    window.click("Scan");
    window.waitForText("No duplicates File found");
    window.click("Show what was not read…");
    window.waitForText("Could Not Be Read");
    EXPECT_EQ(window.wait(ATSPI_ROLE_TABLE, "Folders and files that could not be read")
                  .cell(0, 0)
                  ->name(),
              "gone");
    input::key("Escape");
    window.waitForText("No duplicates File found");
    window.click("Ok");
    window.waitForText("Find duplicate files");
    EXPECT_TRUE(product->runs()) << product->errors();
}

/// A clean-up of the file whose preview is shown.
TEST(Preview, ShowsTheFileThatIsLeftAfterACleanUp) {
    Home home;
    const std::string documents = home.folder().pathOf("Documents");
    writeCopies(documents, {{"jpg", 1, 3}, {"txt", 1, 2}});
    const std::unique_ptr<ChildProcess> product = home.startProduct({documents});
    const ProgramWindow window(product->pid());
    scanAndReview(window);
    const FileRows files(window);
    OutlineRows(window).click(1);
    ASSERT_TRUE(waitUntil([&] { return files.count() == 3; }));
    const std::string left = files.path(0);
    const std::string moved = files.path(2);
    files.click(2);
    window.waitForText("Path: " + moved);
    files.clickCheckBox(2);
    window.waitForText("Marked Duplicate Files: 1");

    window.click("Delete");
    window.waitForText("Duplicates Cleaned: 1");
    window.click("Ok");
    window.waitForText("Path: " + left);
    EXPECT_FALSE(window.showsText("Path: " + moved));
    EXPECT_FALSE(std::filesystem::exists(moved));
    EXPECT_TRUE(product->runs()) << product->errors();
}

/// A clean-up of four pairs, of which one is gone when it begins.
TEST(FilesLeft, AreListedInPlaceOfTheReport) {
    Home home;
    const std::string documents = home.folder().pathOf("Documents");
    writeCopies(documents, {{"jpg", 4, 2}});
    const std::unique_ptr<ChildProcess> product = home.startProduct({documents});
    const ProgramWindow window(product->pid());
    scanAndReview(window);
    window.click("Mark All");
    window.waitForText("Marked Duplicate Files: 4");
    const auto files = filesBelow(documents);
    const std::string gone = std::filesystem::path(files.begin()->first).filename();
    for (const auto& [path, content] : files) {
        if (content == files.begin()->second) {
            std::filesystem::remove(path);
        }
    }

    window.click("Delete");
    window.waitForText("1 file was left where it is.");
    EXPECT_TRUE(window.showsText("Duplicates Cleaned: 3"));
    window.click("Show the files that were left where they are");
    window.waitForText("Left Where They Are");
    const Accessible list = window.wait(ATSPI_ROLE_TABLE, "Files left where they are");
    ASSERT_EQ(list.rows(), 1);
    EXPECT_EQ(list.cell(0, 0)->name(), gone);
    EXPECT_EQ(list.cell(0, 2)->name(), "Not there any more");
    window.click("Close");
    window.waitForText("Duplicates Cleaned: 3");
    window.click("Ok");
    window.waitForEnd("Duplicates Cleaned: 3");
    EXPECT_TRUE(product->runs()) << product->errors();
}

}  // namespace
}  // namespace tarvin
