#include "support/waiting.h"
#include "window/copies.h"
#include "window/home.h"
#include "window/input.h"
#include "window/location_rows.h"
#include "window/program_window.h"
#include "window/result_rows.h"
#include "window/scan_steps.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

namespace tarvin {
namespace {

/// The program used without a mouse.
class Keyboard : public testing::Test {
 protected:
    /// Starts the program, in front and with the keyboard.
    void start(const ChildProcess::Words& folders) {
        product_ = home_.startProduct(folders);
        window_ = std::make_unique<ProgramWindow>(product_->pid());
    }

    /// Waits until a control that can be seen has the focus.
    void expectFocus(AtspiRole role, const std::string& name) const {
        const Accessible control = window_->wait(role, name);
        EXPECT_TRUE(waitUntil([&] {
            return control.is(ATSPI_STATE_FOCUSED) && control.is(ATSPI_STATE_SHOWING);
        })) << name;
        EXPECT_GT(control.area().width, 0) << name;
        EXPECT_GT(control.area().height, 0) << name;
    }
    void expectButton(const std::string& name) const { expectFocus(ATSPI_ROLE_PUSH_BUTTON, name); }
    void expectFiles() const { expectFocus(ATSPI_ROLE_TABLE, "Files of the set"); }
    void expectMarked(int files) const {
        window_->waitForText("Marked Duplicate Files: " + std::to_string(files));
    }
    void expectList(const std::string& name) const { expectFocus(ATSPI_ROLE_LIST, name); }
    /// Adds a folder by the dialog of the button with the focus, which gets the focus back.
    void addFolder(const std::string& button, const std::string& folder) const {
        expectButton(button);
        input::key("Return");
        EXPECT_TRUE(waitUntil([&] { return window_->shows(ATSPI_ROLE_DIALOG, "Add Folders"); }));
        input::type(folder);
        input::key("Return");
        expectButton(button);
    }
    void expectEnd() const { EXPECT_EQ(product_->wait(), 0) << product_->errors(); }

    void goToLocations() const {
        expectButton("Scan Drives");
        input::key("Tab");
        expectButton("Scan Folders");
        input::key("Return");
        expectFocus(ATSPI_ROLE_TABLE, "Locations");
    }
    /// Scans `folders` and closes the summary.
    void openResults(const ChildProcess::Words& folders) {
        start(folders);
        window_->waitForButton("Scan", true);
        expectFocus(ATSPI_ROLE_TABLE, "Locations");
        input::key("ctrl+Return");
        window_->waitForText("Duplicates Found");
        expectButton("Review");
        input::key("Return");
        expectFiles();
    }

    Home home_;
    std::unique_ptr<ChildProcess> product_;
    std::unique_ptr<ProgramWindow> window_;
};

TEST_F(Keyboard, AddsAFolderAndScansIt) {
    const std::string films = makeEndlessFolder(home_, "Films");
    start({});
    goToLocations();
    const LocationRows rows(*window_);
    input::key("Home");
    input::key("space");
    EXPECT_TRUE(waitUntil([&] { return window_->isEnabled("Scan"); }));
    input::key("space");
    EXPECT_TRUE(waitUntil([&] { return !window_->isEnabled("Scan"); }));
    input::key("ctrl+o");
    EXPECT_TRUE(waitUntil([&] { return window_->shows(ATSPI_ROLE_DIALOG, "Add Folders"); }));
    input::type(films);
    input::key("Return");
    EXPECT_TRUE(waitUntil([&] { return rows.has("Films"); }));
    EXPECT_TRUE(rows.isChecked("Films"));
    expectFocus(ATSPI_ROLE_TABLE, "Locations");

    input::key("ctrl+Return");
    expectButton("Pause");
    waitForProgress(*window_);
    input::key("space");
    expectButton("Resume");
    EXPECT_TRUE(timeStandsStill(*window_));
    input::key("space");
    expectButton("Pause");
    window_->waitForButton("Stop", true);
    input::key("Tab");
    expectButton("Stop");
    input::key("space");
    expectButton("No");
    input::key("Escape");
    expectButton("Stop");
    input::key("space");
    expectButton("No");
    input::key("Tab");
    expectButton("Yes");
    input::key("space");
    window_->waitForText("Duplicate Files");
    expectButton("Review");
    input::key("Return");
    expectButton("Scan Drives");
    input::key("alt+F4");
    expectEnd();
}

TEST_F(Keyboard, MarksFilesByTheirMenuAndByARule) {
    const std::string documents = home_.folder().pathOf("Documents");
    writeCopies(documents, {{"jpg", 2, 3}, {"txt", 2, 2}});
    openResults({documents});
    const FileRows files(*window_);
    const std::string before = files.path(0);
    input::key("ctrl+Down");
    EXPECT_TRUE(waitUntil([&] { return files.path(0) != before; }));
    expectFiles();
    input::key("space");
    expectMarked(1);
    // "Keep This One". Keys wait for the menu in the queue of the window.
    input::key("shift+F10 Down Down Down Down Return");
    expectMarked(2);
    expectFiles();

    input::key("ctrl+r");
    expectFocus(ATSPI_ROLE_RADIO_BUTTON, "The first found");
    input::key("Down");
    expectFocus(ATSPI_ROLE_RADIO_BUTTON, "The newest");
    window_->waitForButton("Mark", true);
    input::key("Return");
    expectMarked(6);
    expectFiles();
    input::key("ctrl+1 shift+Tab");
    expectFocus(ATSPI_ROLE_TREE, "Extensions and sets");
    input::key("Menu Escape");
    expectFocus(ATSPI_ROLE_TREE, "Extensions and sets");
    input::key("ctrl+shift+a");
    expectMarked(0);
    input::key("alt+F4");
    expectEnd();
}

TEST_F(Keyboard, ChoosesTheFoldersOfARule) {
    for (const char* name : {"Documents/a/x.jpg", "Documents/b/x.jpg"}) {
        static_cast<void>(home_.folder().writeFile(name, "equal"));
    }
    const std::string documents = home_.folder().pathOf("Documents");
    openResults({documents});
    input::key("ctrl+r");
    expectFocus(ATSPI_ROLE_RADIO_BUTTON, "The first found");
    input::key("Down Down Down Down Down");
    expectFocus(ATSPI_ROLE_RADIO_BUTTON, "The copy in a preferred folder");
    window_->waitForText("No preferred folder yet.");
    input::key("Tab");
    expectList("Preferred folders");
    input::key("Tab");
    addFolder("Add preferred folder", documents + "/b");
    window_->waitForText("1 file (0.00 KB) will be marked in 1 set.");
    // Past Remove, to the list of the other side.
    input::key("Tab Tab");
    expectList("Never mark files in");
    input::key("Tab");
    addFolder("Add protected folder", documents + "/a");
    window_->waitForText("No files will be marked.");
    input::key("shift+Tab");
    expectList("Never mark files in");
    // Return in a list does nothing.
    input::key("Return Delete");
    window_->waitForText("1 file (0.00 KB) will be marked in 1 set.");
    window_->waitForButton("Mark", true);
    input::key("Tab Tab Tab");
    expectButton("Mark");
    input::key("Return");
    expectMarked(1);
    expectFiles();
    EXPECT_TRUE(product_->runs()) << product_->errors();
}

TEST_F(Keyboard, ReadsTheListOfWhatCouldNotBeRead) {
    const std::string documents = home_.folder().pathOf("Documents");
    const std::string gone = home_.folder().makeFolder("gone");
    writeCopies(documents, {{"jpg", 1, 2}});
    start({documents, gone});
    window_->waitForButton("Scan", true);
    expectFocus(ATSPI_ROLE_TABLE, "Locations");
    std::filesystem::remove(gone);
    input::key("ctrl+Return");
    window_->waitForText("Duplicates Found");
    expectButton("Review");
    input::key("Return");
    expectFiles();
    const std::string notice = "1 folder could not be read. Show…";
    // The notice is before the button of the menu.
    input::key("F10 Escape shift+Tab");
    expectButton(notice);
    input::key("Return");
    expectButton("Close");
    input::key("Tab");
    expectFocus(ATSPI_ROLE_TABLE, "Folders and files that could not be read");
    // Return in the list does nothing.
    input::key("Down Return Tab");
    expectButton("Copy List");
    input::key("Escape");
    window_->waitForEnd("Could Not Be Read");
    expectButton(notice);
    input::key("alt+F4");
    expectEnd();
}

TEST_F(Keyboard, ExportsCleansAndGoesHome) {
    const std::string documents = home_.folder().pathOf("Documents");
    writeCopies(documents, {{"jpg", 2, 3}});
    openResults({documents});
    input::key("ctrl+a");
    expectMarked(4);
    input::key("ctrl+shift+e");
    expectButton("Close");
    input::key("Escape");
    expectFiles();
    input::key("F10 Up Up Return");
    EXPECT_TRUE(waitUntil([&] { return window_->shows(ATSPI_ROLE_DIALOG, "Export Results"); }));
    input::key("Return");
    window_->waitForText("2 sets exported.");
    expectButton("Ok");
    input::key("Return");
    // F10 has moved the focus to the button of the menu.
    expectButton("More");

    input::key("ctrl+BackSpace");
    window_->waitForText("Duplicates Cleaned: 4");
    expectButton("Ok");
    input::key("space");
    window_->waitForEnd("Duplicates Cleaned: 4");
    expectFiles();
    input::key("ctrl+shift+h");
    expectButton("Scan Drives");
    input::key("ctrl+z");
    expectButton("Put Back");
    input::key("Return");
    window_->waitForText("Files Put Back: 4");
    expectButton("Ok");
    input::key("Return");
    expectButton("Scan Drives");
    input::key("alt+F4");
    expectEnd();
    EXPECT_EQ(filesBelow(documents).size(), 7U);  // with the exported list
}

}  // namespace
}  // namespace tarvin
