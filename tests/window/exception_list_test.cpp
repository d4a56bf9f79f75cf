#include "store/exception_file.h"
#include "support/waiting.h"
#include "window/home.h"
#include "window/input.h"
#include "window/program_window.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {
namespace {

/// The exceptions list in the window.
class ExceptionListWindow : public testing::Test {
 protected:
    using Paths = std::vector<std::string>;

    ExceptionListWindow() {
        for (const char* name : {"beach.jpg", "Café.txt", "map.png"}) {
            listed_.push_back(home_.folder().writeFile(std::string("Documents/") + name, "x"));
        }
        listed_.push_back(home_.folder().pathOf("Documents/lost.odt"));
        EXPECT_FALSE(ExceptionFile(data_).addExceptions(listed_).has_value());
        product_ = home_.startProduct({});
        window_ = std::make_unique<ProgramWindow>(product_->pid());
        window_->waitForText("Find duplicate files");
        input::key("ctrl+shift+e");
        window_->waitForText("4 files, 1 not there any more");
    }
    ~ExceptionListWindow() override { EXPECT_TRUE(product_->runs()) << product_->errors(); }

    [[nodiscard]] Paths stored() const {
        ExceptionFile file(data_);
        EXPECT_FALSE(file.load().has_value());
        return file.exceptionArrayData();
    }

    Home home_;
    std::string data_ =
        home_.folder().pathOf(".local/share/Tarvin Software/Tarvin Duplicate File Remover");
    Paths listed_;
    std::unique_ptr<ChildProcess> product_;
    std::unique_ptr<ProgramWindow> window_;
};

TEST_F(ExceptionListWindow, SearchesAndRemovesAFile) {
    for (const char* key : {"c", "A", "f", "e"}) {
        input::key(key);
    }
    window_->waitForText("1 of 4 files");
    const Accessible list = window_->wait(ATSPI_ROLE_TABLE, "Exceptions");
    ASSERT_EQ(list.rows(), 1);
    EXPECT_FALSE(window_->isEnabled("Remove"));
    input::click(list.cell(0, 0)->area().middle());
    window_->click("Remove");
    window_->waitForText("No exception matches \"cAfe\".");
    EXPECT_EQ(stored(), (Paths{listed_[0], listed_[2], listed_[3]}));
    EXPECT_TRUE(std::filesystem::exists(listed_[1]));
    input::key("Escape");
    window_->waitForText("3 files, 1 not there any more");
    input::key("Escape");
    window_->waitForEnd("3 files, 1 not there any more");
    window_->waitForText("Find duplicate files");
}

TEST_F(ExceptionListWindow, RemovesAllMissingFiles) {
    window_->click("Remove All Missing");
    window_->waitForText("3 files");
    EXPECT_EQ(stored(), (Paths{listed_[0], listed_[1], listed_[2]}));
    window_->click("Close");
    window_->waitForEnd("3 files");
}

}  // namespace
}  // namespace tarvin
