#include "support/waiting.h"
#include "window/announcements.h"
#include "window/copies.h"
#include "window/home.h"
#include "window/input.h"
#include "window/program_window.h"
#include "window/result_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {
namespace {

/// The results as screen readers see them.
class ResultAccess : public testing::Test {
 protected:
    ~ResultAccess() override { EXPECT_TRUE(product_->runs()) << product_->errors(); }

    /// Scans two sets of images and two of texts, or `all`, and focuses the file list.
    void openResults(const std::vector<Copies>& copies = {{"jpg", 2, 3}, {"txt", 2, 2}});

    void expectMark(const OutlineRows& rows, int row, Mark mark) const {
        EXPECT_TRUE(waitUntil([&] { return rows.mark(row) == mark; })) << row;
    }
    void expectMark(const FileRows& rows, int row, Mark mark) const {
        EXPECT_TRUE(waitUntil([&] { return rows.mark(row) == mark; })) << row;
    }
    void expectFocus(AtspiRole role, const std::string& name) const {
        const Accessible control = window_->wait(role, name);
        EXPECT_TRUE(waitUntil([&] { return control.is(ATSPI_STATE_FOCUSED); })) << name;
    }

    Home home_;
    std::unique_ptr<ChildProcess> product_;
    std::unique_ptr<ProgramWindow> window_;
};

void ResultAccess::openResults(const std::vector<Copies>& copies) {
    const std::string folder = home_.folder().makeFolder("Archive");
    writeCopies(folder, copies);
    product_ = home_.startProduct({folder});
    window_ = std::make_unique<ProgramWindow>(product_->pid());
    window_->click("Scan");
    window_->waitForText("Duplicates Found");
    expectFocus(ATSPI_ROLE_PUSH_BUTTON, "Review");
    input::key("Return");
    window_->waitForEnd("Duplicates Found");
    expectFocus(ATSPI_ROLE_TABLE, "Files of the set");
}

TEST_F(ResultAccess, FindsEveryControlByItsRoleAndName) {
    openResults();
    for (const char* name :
         {"Home", "Help", "All", "Image", "Video", "Audio", "Documents", "Other", "Mark All",
          "Unmark All", "Add to Exceptions", "Remove Exceptions", "Delete"}) {
        EXPECT_TRUE(window_->shows(ATSPI_ROLE_PUSH_BUTTON, name)) << name;
    }
    EXPECT_TRUE(window_->shows(ATSPI_ROLE_COMBO_BOX, "Sort by"));
    EXPECT_TRUE(window_->shows(ATSPI_ROLE_CHECK_BOX, "File order"));
    EXPECT_TRUE(window_->shows(ATSPI_ROLE_CHECK_BOX, "Sort direction"));
    EXPECT_TRUE(window_->shows(ATSPI_ROLE_TREE, "Extensions and sets"));
    EXPECT_TRUE(window_->shows(ATSPI_ROLE_TABLE, "Files of the set"));
    EXPECT_TRUE(window_->shows(ATSPI_ROLE_IMAGE, "Preview"));
    EXPECT_TRUE(window_->shows(ATSPI_ROLE_TEXT, "File properties"));
    EXPECT_FALSE(window_->isEnabled("All"));
    EXPECT_FALSE(window_->isEnabled("Unmark All"));
}

TEST_F(ResultAccess, NamesRowsAndTheirBoxes) {
    openResults();
    const OutlineRows outline(*window_);
    ASSERT_EQ(outline.count(), 6);
    EXPECT_EQ(outline.name(0), "jpg");
    EXPECT_EQ(outline.box(0).name(), "Mark jpg");
    EXPECT_TRUE(outline.box(0).is(ATSPI_STATE_EXPANDED));
    EXPECT_EQ(outline.name(1), "Set(2)");
    EXPECT_EQ(outline.box(1).name(), "Mark Set(2)");
    EXPECT_TRUE(outline.box(1).is(ATSPI_STATE_SELECTED));
    EXPECT_EQ(outline.name(3), "txt");
    EXPECT_EQ(outline.box(5).name(), "Mark Set(1)");

    const FileRows files(*window_);
    ASSERT_EQ(files.count(), 3);
    EXPECT_EQ(files.box(2).name(), "Mark " + files.name(2).name());
    EXPECT_TRUE(files.name(2).name().ends_with(".jpg"));
    EXPECT_EQ(files.group(2), "1");
}

TEST_F(ResultAccess, AnnouncesOutlineBoxesToggledByKeyboard) {
    openResults();
    const OutlineRows outline(*window_);
    input::key("shift+Tab");
    expectFocus(ATSPI_ROLE_TREE, "Extensions and sets");
    input::key("space");
    expectMark(outline, 1, Mark::on);
    expectMark(outline, 0, Mark::mixed);
    window_->waitForText("Marked Duplicate Files: 2");
    input::key("space");
    expectMark(outline, 1, Mark::off);
    expectMark(outline, 0, Mark::off);

    input::key("Up");
    input::key("space");
    expectMark(outline, 0, Mark::on);
    expectMark(outline, 1, Mark::on);
    expectMark(outline, 2, Mark::on);
    expectMark(outline, 3, Mark::off);
    // Toggling by keyboard does not change the selection.
    EXPECT_TRUE(outline.box(1).is(ATSPI_STATE_SELECTED));
}

TEST_F(ResultAccess, AnnouncesFileBoxesToggledByKeyboard) {
    openResults();
    const FileRows files(*window_);
    input::key("space");
    expectMark(files, 0, Mark::on);
    input::key("Down");
    input::key("space");
    expectMark(files, 1, Mark::on);
    expectMark(OutlineRows(*window_), 1, Mark::on);

    input::key("Down");
    input::key("space");
    window_->waitForText("All the files of same set cannot be selected");
    expectFocus(ATSPI_ROLE_PUSH_BUTTON, "Ok");
    input::key("space");
    window_->waitForEnd("All the files of same set cannot be selected");
    EXPECT_EQ(files.mark(2), Mark::off);

    expectFocus(ATSPI_ROLE_TABLE, "Files of the set");
    input::key("Up");
    input::key("space");
    expectMark(files, 1, Mark::off);
    expectMark(OutlineRows(*window_), 1, Mark::mixed);
}

TEST_F(ResultAccess, ToggleActionTogglesBoxes) {
    openResults();
    const FileRows files(*window_);
    EXPECT_TRUE(files.box(1).act("Toggle"));
    window_->waitForText("Marked Duplicate Files: 1");
    expectMark(files, 1, Mark::on);
    EXPECT_TRUE(files.name(0).is(ATSPI_STATE_SELECTED));
    EXPECT_TRUE(files.box(1).act("Toggle"));
    window_->waitForText("Marked Duplicate Files: 0");
    EXPECT_FALSE(files.name(1).act("Toggle"));

    const OutlineRows outline(*window_);
    EXPECT_TRUE(outline.box(3).act("Toggle"));
    window_->waitForText("Marked Duplicate Files: 2");
    expectMark(outline, 4, Mark::on);
    EXPECT_TRUE(outline.box(4).act("Toggle"));
    window_->waitForText("Marked Duplicate Files: 1");
    expectMark(outline, 3, Mark::mixed);
    // The selected set does not change.
    EXPECT_TRUE(outline.box(1).is(ATSPI_STATE_SELECTED));
}

TEST_F(ResultAccess, AnnouncesChangedMarksOnly) {
    openResults();
    const FileRows files(*window_);
    Announcements announcements;
    const auto expectHeard = [&](std::vector<std::string> lines) {
        std::sort(lines.begin(), lines.end());
        std::vector<std::string> heard;
        EXPECT_TRUE(announcements.hear([&](const std::vector<std::string>& all) {
            heard = all;
            std::sort(heard.begin(), heard.end());
            return heard == lines;
        })) << testing::PrintToString(heard);
        announcements.forget();
    };
    const auto file = [&](int row) { return files.box(row).name(); };

    window_->click("Mark All");
    window_->waitForText("Marked Duplicate Files: 6");
    expectHeard({"Mark jpg on", "Mark Set(2) on", "Mark Set(2) on", "Mark txt on", "Mark Set(1) on",
                 "Mark Set(1) on", file(1) + " on", file(2) + " on"});
    EXPECT_TRUE(files.box(2).act("Toggle"));
    window_->waitForText("Marked Duplicate Files: 5");
    // Screen readers read the description of a mixed check box.
    expectHeard({file(2) + " off", "Mark Set(2) off"});
    window_->click("Unmark All");
    window_->waitForText("Marked Duplicate Files: 0");
    expectHeard({"Mark jpg off", "Mark Set(2) off", "Mark Set(2) off", "Mark txt off",
                 "Mark Set(1) off", "Mark Set(1) off", file(1) + " off"});

    files.clickCheckBox(1);
    files.clickCheckBox(2);
    window_->waitForText("Marked Duplicate Files: 2");
    expectHeard(
        {"Mark jpg off", "Mark Set(2) off", file(1) + " on", "Mark Set(2) on", file(2) + " on"});
    // A refused toggle is not announced.
    files.clickCheckBox(0);
    window_->waitForText("All the files of same set cannot be selected");
    window_->click("Ok");
    files.clickCheckBox(2);
    window_->waitForText("Marked Duplicate Files: 1");
    expectHeard({file(2) + " off", "Mark Set(2) off"});
}

TEST_F(ResultAccess, ShowsThePathOfTheSelectedFile) {
    openResults();
    const FileRows files(*window_);
    window_->waitForText("Path: " + files.path(0));
    EXPECT_TRUE(files.name(0).is(ATSPI_STATE_SELECTED));
    files.click(2);
    window_->waitForText("Path: " + files.path(2));
    EXPECT_TRUE(files.name(2).is(ATSPI_STATE_SELECTED));
    EXPECT_FALSE(files.name(0).is(ATSPI_STATE_SELECTED));
    input::key("Up");
    window_->waitForText("Path: " + files.path(1));
    OutlineRows(*window_).click(4);
    EXPECT_TRUE(waitUntil([&] { return files.count() == 2; }));
    window_->waitForText("Path: " + files.path(0));
    EXPECT_TRUE(waitUntil([&] { return files.name(0).is(ATSPI_STATE_SELECTED); }));
}

TEST_F(ResultAccess, ReportsTheStateOfTheSortOrder) {
    openResults();
    const Accessible order = window_->wait(ATSPI_ROLE_CHECK_BOX, "File order");
    EXPECT_TRUE(order.is(ATSPI_STATE_CHECKED));
    input::click(order.area().middle());
    EXPECT_TRUE(waitUntil([&] { return !order.is(ATSPI_STATE_CHECKED); }));
    input::key("space");
    EXPECT_TRUE(waitUntil([&] { return order.is(ATSPI_STATE_CHECKED); }));
}

TEST_F(ResultAccess, FindsPanelsWithTheirButtons) {
    openResults();
    window_->click("Delete");
    window_->waitForText("Please select any file to delete.");
    window_->waitForText("Information");
    expectFocus(ATSPI_ROLE_PUSH_BUTTON, "Ok");
    input::key("Return");
    window_->waitForEnd("Information");

    window_->click("Mark All");
    window_->click("Add to Exceptions");
    window_->waitForText("Add to Exceptions");
    EXPECT_TRUE(window_->isEnabled("Cancel"));
    expectFocus(ATSPI_ROLE_PUSH_BUTTON, "Ok");
    input::key("Escape");
    window_->waitForEnd("Add to Exceptions");
    window_->waitForText("Marked Duplicate Files: 6");

    window_->click("Add to Exceptions");
    window_->click("Ok");
    window_->waitForText("\nSuccessfully added 6 files to exceptions.");
    window_->click("Ok");
    window_->click("Remove Exceptions");
    window_->waitForText("Are you sure, you want to remove all exceptions?");
    EXPECT_TRUE(window_->isEnabled("NO"));
    window_->click("YES");
    window_->waitForText("\nAll exceptions has been removed.");
    window_->click("Ok");
    window_->waitForButton("Remove Exceptions", false);
}

TEST_F(ResultAccess, FindsTheDeletionPanel) {
    constexpr int sets = 1000;
    openResults({{"jpg", sets, 2}});
    input::key("ctrl+a");
    window_->waitForText("Marked Duplicate Files: 1000");
    // Before the last file has been moved.
    input::key("ctrl+BackSpace ctrl+p");
    window_->waitForText("Moving to the Trash");
    window_->waitForText("Deleting files, please wait...");
    EXPECT_TRUE(window_->shows(ATSPI_ROLE_PROGRESS_BAR, "Deletion progress"));
    window_->waitForButton("Resume", true);
    window_->waitForButton("Stop", false);
    window_->click("Resume");
    window_->waitForText("Duplicates Cleaned: 1000");
    window_->click("Ok");
}

}  // namespace
}  // namespace tarvin
