#include "window/drop.h"
#include "window/home.h"
#include "window/location_rows.h"
#include "window/program_window.h"
#include "window/scan_steps.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace tarvin {
namespace {

/// The program with the location list open, as the target of drops from another program.
class Drops : public testing::Test {
 protected:
    Drops() : product_(home_.startProduct()), window_(product_->pid()) {
        window_.click("Scan Folders");
        rows_ = std::make_unique<LocationRows>(window_);
        countAtFirst_ = rows_->count();
    }
    ~Drops() override { EXPECT_TRUE(product_->runs()) << product_->errors(); }

    [[nodiscard]] const TemporaryFolder& folder() const { return home_.folder(); }
    [[nodiscard]] int addedRows() const { return rows_->count() - countAtFirst_; }

    void drop(const std::vector<std::string>& paths) const { dropFiles(paths, rows_->dropSpot()); }
    void dropData(const std::string& type, const std::string& content) const {
        dropFromElsewhere(type, content, rows_->dropSpot());
    }
    void expectNotice(const std::string& text) const {
        window_.waitForText(text);
        window_.click("Ok");
        window_.waitForEnd(text);
    }
    void expectNoNotice() const { EXPECT_FALSE(window_.shows(ATSPI_ROLE_PUSH_BUTTON, "Ok")); }

    Home home_;
    std::unique_ptr<ChildProcess> product_;
    ProgramWindow window_;
    std::unique_ptr<LocationRows> rows_;
    int countAtFirst_ = 0;
};

TEST_F(Drops, OfTextChangeNothing) {
    dropData("text/plain", "/usr/share/doc");
    EXPECT_EQ(addedRows(), 0);
    expectNoNotice();
}

TEST_F(Drops, OfAWebUrlChangeNothing) {
    dropData("text/uri-list", "https://www.example.org/picture.png\r\n");
    EXPECT_EQ(addedRows(), 0);
    expectNoNotice();
}

TEST_F(Drops, OfAFolderInsideAListedOneShowANotice) {
    drop({folder().pathOf("Desktop")});
    expectNotice("File already added.");
    drop({folder().makeFolder("Pictures/Summer")});
    expectNotice("File already added.");
    EXPECT_EQ(addedRows(), 0);
    EXPECT_FALSE(window_.isEnabled("Scan"));
}

TEST_F(Drops, OfAFileThatIsNotAnImageShowANotice) {
    drop({folder().writeFile("letter.txt", "Dear")});
    expectNotice("Unsupported file.");
    EXPECT_EQ(addedRows(), 0);
}

TEST_F(Drops, OfValidAndInvalidPathsAddTheValidSilently) {
    drop({folder().pathOf("Desktop"), folder().writeFile("letter.txt", "Dear"),
          folder().writeFile("sunset.png", "no picture inside")});
    EXPECT_EQ(addedRows(), 1);
    expectNoNotice();
    EXPECT_TRUE(rows_->isChecked("sunset.png"));
    EXPECT_FALSE(window_.isEnabled("Scan"));
}

TEST_F(Drops, OfTenThousandFilesAddAll) {
    constexpr int count = 10'000;
    std::vector<std::string> paths;
    for (int number = 0; number < count; ++number) {
        paths.push_back(folder().writeFile("photos/" + std::to_string(number) + ".jpg", ""));
    }
    drop(paths);
    EXPECT_EQ(addedRows(), count);
    expectNoNotice();
    window_.waitForButton("Scan", true);
}

TEST_F(Drops, OfANameThatIsNotUtf8AreScanned) {
    drop({makeSmallFolder(home_, "caf\xE9 100%")});
    EXPECT_EQ(addedRows(), 1);
    EXPECT_TRUE(rows_->isChecked("caf\xEF\xBF\xBD 100%"));
    window_.click("Scan");
    window_.waitForText("Duplicate Files");
}

}  // namespace
}  // namespace tarvin
