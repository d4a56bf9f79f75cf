#include "window/copies.h"
#include "window/home.h"
#include "window/input.h"
#include "window/program_window.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>

namespace tarvin {
namespace {

/// A clean-up and its restoration in the window.
class PutBackWindow : public testing::Test {
 protected:
    PutBackWindow() {
        writeCopies(documents_, {{"jpg", 40, 3}, {"txt", 20, 2}});
        before_ = filesBelow(documents_);
        product_ = home_.startProduct({documents_});
        window_ = std::make_unique<ProgramWindow>(product_->pid());
    }
    ~PutBackWindow() override { EXPECT_TRUE(product_->runs()) << product_->errors(); }

    /// Scans, marks all duplicates and moves them to the Trash.
    void cleanUp() const {
        window_->click("Scan");
        answer("Duplicates Found", "Review");
        window_->click("Mark All");
        window_->waitForText("Marked Duplicate Files: 100");
        window_->click("Delete");
        answer("Duplicates Cleaned: 100", "Ok");
    }

    void answer(const std::string& text, const std::string& button) const {
        window_->waitForText(text);
        window_->click(button);
        window_->waitForEnd(text);
    }

    /// Opens the panel from the menu button in the bar.
    void openPutBack() const {
        // Its role depends on the version of Qt.
        const bool isPlain = window_->shows(ATSPI_ROLE_PUSH_BUTTON, "More");
        const AtspiRole role = isPlain ? ATSPI_ROLE_PUSH_BUTTON : ATSPI_ROLE_PUSH_BUTTON_MENU;
        input::click(window_->wait(role, "More").area().middle());
        // The last menu item.
        input::key("Up");
        input::key("Return");
    }

    Home home_;
    std::string documents_ = home_.folder().pathOf("Documents");
    std::map<std::string, std::string> before_;
    std::unique_ptr<ChildProcess> product_;
    std::unique_ptr<ProgramWindow> window_;
};

TEST_F(PutBackWindow, RestoresACleanUp) {
    cleanUp();
    ASSERT_EQ(filesBelow(documents_).size(), before_.size() - 100);
    ASSERT_EQ(trashedFiles(home_.folder().pathOf(".local/share")).size(), 100U);

    openPutBack();
    window_->waitForText("100 files (100.00 KB)");
    window_->waitForText("100 files will be put back.");
    const Accessible list = window_->wait(ATSPI_ROLE_TABLE, "Files of the last clean-up");
    EXPECT_EQ(list.rows(), 100);
    window_->click("Put Back");
    answer("Files Put Back: 100", "Ok");

    EXPECT_EQ(filesBelow(documents_), before_);
    EXPECT_TRUE(trashedFiles(home_.folder().pathOf(".local/share")).empty());

    // A clean-up can be restored only once.
    openPutBack();
    answer("The last clean-up has been put back already.", "Ok");
    window_->click("Home");
    window_->waitForText("Find duplicate files");
    EXPECT_FALSE(window_->showsText("Files cleaned so far: 100 (100.00 KB)"));
}

TEST_F(PutBackWindow, ReplacesNothingAndListsFilesNotRestored) {
    cleanUp();
    const auto trashed = trashedFiles(home_.folder().pathOf(".local/share"));
    const std::string taken = trashed.begin()->first;
    std::ofstream(taken) << "something else";
    const std::string lost = trashed.rbegin()->first;
    std::filesystem::remove(home_.folder().pathOf(".local/share/Trash/files/" +
                                                  std::filesystem::path(lost).filename().string()));

    input::key("ctrl+z");
    window_->waitForText("1 file cannot be put back.");
    window_->click("Put Back");
    window_->waitForText("Files Put Back: 99");
    window_->waitForText("1 file could not be put back:");
    window_->waitForText("Scan again to see these files in the results.");
    window_->click("Ok");

    auto expected = before_;
    const std::filesystem::path original(taken);
    const std::string besides =
        (original.parent_path() /
         (original.stem().string() + " (put back)" + original.extension().string()))
            .string();
    expected[besides] = expected[taken];
    expected[taken] = "something else";
    auto after = filesBelow(documents_);
    EXPECT_EQ(after.size() + 1, expected.size());
    for (const auto& [path, content] : after) {
        EXPECT_EQ(expected[path], content) << path;
    }
}

}  // namespace
}  // namespace tarvin
