#include "platform/file_lock.h"
#include "support/waiting.h"
#include "window/copies.h"
#include "window/home.h"
#include "window/location_rows.h"
#include "window/program_window.h"
#include "window/result_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Files = std::map<std::string, std::string>;
using Paths = std::set<std::string>;

Paths pathsOf(const Files& files) {
    Paths paths;
    for (const auto& [path, content] : files) {
        paths.insert(path);
    }
    return paths;
}

/// The contents, sorted, with repetitions.
std::vector<std::string> contentsOf(const Files& files) {
    std::vector<std::string> contents;
    for (const auto& [path, content] : files) {
        contents.push_back(content);
    }
    std::sort(contents.begin(), contents.end());
    return contents;
}

/// The `files` at `paths`.
Files those(const Files& files, const Paths& paths) {
    Files chosen;
    for (const std::string& path : paths) {
        if (const auto file = files.find(path); file != files.end()) {
            chosen.insert(*file);
        }
    }
    return chosen;
}

Paths difference(const Paths& from, const Paths& without) {
    Paths left;
    std::set_difference(from.begin(), from.end(), without.begin(), without.end(),
                        std::inserter(left, left.end()));
    return left;
}

/// A folder in memory, if there is one: on a busy disk the test takes minutes instead of seconds.
std::filesystem::path fastFolder() {
    const std::filesystem::path memory = "/dev/shm";
    return std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
}

/// A scan of 20,000 files, most of them duplicates, and the use of its result.
class ResultsWorkflow : public testing::Test {
 protected:
    ResultsWorkflow() {
        writeCopies(documents_, {{"jpg", 2000, 3},
                                 {"png", 1000, 2},
                                 {"mp3", 1000, 2},
                                 {"pdf", 1000, 3},
                                 {"txt", 1500, 2},
                                 {"zip", 1000, 2},
                                 {"doc", 2000, 1}});
        before_ = filesBelow(documents_);
        product_ = home_.startProduct();
        window_ = std::make_unique<ProgramWindow>(product_->pid());
    }
    ~ResultsWorkflow() override { EXPECT_TRUE(product_->runs()) << product_->errors(); }

    void scan() const;
    void expectSummary(const std::vector<std::string>& lines, const std::string& button) const;
    void visitTabs() const;
    /// Excludes one file marked in the list and two marked by the check box of another set.
    void exclude();
    void deleteAllMarked() const;

    void expectExceptionsStored() const;
    void expectFilesMoved() const;
    void expectTotalsStored() const;

    [[nodiscard]] std::string storedPath(const std::string& file) const;
    [[nodiscard]] std::string storedText(const std::string& file) const;

    static constexpr int filesAtFirst = 20'000;
    static constexpr int excluded = 3;
    static constexpr int deleted = 10'497;

    Home home_{fastFolder()};
    std::string documents_ = home_.folder().pathOf("Documents");
    Files before_;
    std::unique_ptr<ChildProcess> product_;
    std::unique_ptr<ProgramWindow> window_;
    Paths excluded_;
    Paths kept_;   // of the two sets in exclude()
    Paths moved_;  // of the two sets in exclude()
};

void ResultsWorkflow::scan() const {
    window_->waitForText("Find duplicate files");
    window_->click("Scan Folders");
    const LocationRows rows(*window_);
    rows.clickCheckBox("Documents");
    window_->click("Scan");
}

void ResultsWorkflow::expectSummary(const std::vector<std::string>& lines,
                                    const std::string& button) const {
    for (const std::string& line : lines) {
        window_->waitForText(line);
    }
    window_->click(button);
    window_->waitForEnd(lines.front());
}

void ResultsWorkflow::visitTabs() const {
    window_->click("Image");
    expectSummary({"Information", "Image Duplicates: 5000", "Memory Occupied: 5.00 MB"}, "Review");
    window_->waitForButton("Image", false);
    window_->waitForButton("All", true);
    EXPECT_EQ(OutlineRows(*window_).count(), 2 + 3000);

    window_->click("Video");
    expectSummary({"Information", "No Video Duplicates Found"}, "Ok");
    window_->waitForButton("All", false);
    window_->waitForButton("Video", true);
    // The summary of a category is shown once.
    EXPECT_FALSE(window_->showsText("Duplicates Found"));
    EXPECT_EQ(OutlineRows(*window_).count(), 6 + 7500);
}

void ResultsWorkflow::exclude() {
    const OutlineRows outline(*window_);
    const FileRows files(*window_);
    constexpr int third = 3;  // below the row of its extension and of two sets
    outline.click(third);
    ASSERT_TRUE(waitUntil([&] { return files.count() == 3 && files.group(0) == "3"; }));
    window_->waitForText("Path: " + files.path(0));
    EXPECT_EQ(before_.at(files.path(0)), before_.at(files.path(2)));
    kept_.insert(files.path(0));
    excluded_.insert(files.path(1));
    moved_.insert(files.path(2));
    files.clickCheckBox(1);
    window_->waitForText("Marked Duplicate Files: 1");
    EXPECT_EQ(files.mark(1), Mark::on);
    EXPECT_EQ(outline.mark(third), Mark::mixed);

    constexpr int fifth = 5;
    outline.click(fifth);
    ASSERT_TRUE(waitUntil([&] { return files.count() == 3 && files.group(0) == "5"; }));
    outline.clickCheckBox(fifth);
    window_->waitForText("Marked Duplicate Files: 3");
    window_->waitForText("Marked File Size: 3.00 KB");
    EXPECT_EQ(outline.mark(fifth), Mark::on);
    EXPECT_EQ(files.mark(0), Mark::off);
    kept_.insert(files.path(0));
    excluded_.insert({files.path(1), files.path(2)});

    window_->click("Add to Exceptions");
    expectSummary({"The selected files will be excluded from all future scans. Press \"OK\" to "
                   "exclude."},
                  "Ok");
    expectSummary({"\nSuccessfully added 3 files to exceptions."}, "Ok");
    window_->waitForText("Marked Duplicate Files: 0");
    EXPECT_EQ(files.count(), 1);
}

void ResultsWorkflow::deleteAllMarked() const {
    window_->click("Mark All");
    window_->waitForText("Marked Duplicate Files: 10497");
    window_->waitForText("Marked File Size: 10.50 MB");
    {
        // Another clean-up holds the lock, so this one cannot finish before its panel is visible.
        const LockFile turns(storedPath("clean-up.turn"));
        const Result<FileLock> turn = turns.take(0, std::chrono::seconds(10));
        ASSERT_TRUE(turn);
        window_->click("Delete");
        window_->waitForText("Deleting files, please wait...");
    }
    expectSummary({"Duplicates Cleaned: 10497", "Space Regained: 10.50 MB "}, "Ok");
    window_->waitForText("Marked Duplicate Files: 0");
    EXPECT_EQ(OutlineRows(*window_).count(), 6 + 7500);
}

std::string ResultsWorkflow::storedPath(const std::string& file) const {
    return home_.folder().pathOf(".local/share/Tarvin Software/Tarvin Duplicate File Remover/" +
                                 file);
}

std::string ResultsWorkflow::storedText(const std::string& file) const {
    std::ifstream stored(storedPath(file));
    return {std::istreambuf_iterator<char>(stored), {}};
}

void ResultsWorkflow::expectExceptionsStored() const {
    ASSERT_EQ(excluded_.size(), std::size_t{excluded});
    const std::string text = storedText("exception.plist");
    for (const std::string& path : excluded_) {
        EXPECT_NE(text.find("<string>" + path + "</string>"), std::string::npos) << path;
    }
}

void ResultsWorkflow::expectFilesMoved() const {
    const Files after = filesBelow(documents_);
    EXPECT_EQ(after, those(before_, pathsOf(after)));
    const Paths gone = difference(pathsOf(before_), pathsOf(after));
    EXPECT_EQ(gone.size(), std::size_t{deleted});
    EXPECT_EQ(trashedFiles(home_.folder().pathOf(".local/share")), those(before_, gone));
    EXPECT_TRUE(std::includes(gone.begin(), gone.end(), moved_.begin(), moved_.end()));

    const Paths left = pathsOf(after);
    for (const Paths& stayed : {excluded_, kept_}) {
        EXPECT_TRUE(std::includes(left.begin(), left.end(), stayed.begin(), stayed.end()));
    }
    // Each content is left once, apart from the excluded files.
    std::vector<std::string> all = contentsOf(before_);
    all.erase(std::unique(all.begin(), all.end()), all.end());
    EXPECT_EQ(contentsOf(those(after, difference(left, excluded_))), all);
}

void ResultsWorkflow::expectTotalsStored() const {
    std::string text = storedText("data.plist");
    text.erase(std::remove_if(text.begin(), text.end(), [](char c) { return c <= ' '; }),
               text.end());
    EXPECT_NE(text.find("<key>deletedCount</key><integer>10497</integer>"), std::string::npos)
        << text;
    EXPECT_NE(text.find("<key>deletedSize</key><integer>10497000</integer>"), std::string::npos)
        << text;
}

TEST_F(ResultsWorkflow, FromAScanToTheTrashLeavesNoDuplicates) {
    ASSERT_EQ(before_.size(), std::size_t{filesAtFirst});
    scan();
    expectSummary({"Duplicates Found", "Media: 6000", "Documents: 3500", "Others: 1000"}, "Review");
    visitTabs();
    ASSERT_NO_FATAL_FAILURE(exclude());
    deleteAllMarked();
    window_->click("Home");
    window_->waitForText("Files cleaned so far: 10497 (10.50 MB)");
    expectExceptionsStored();
    expectFilesMoved();
    expectTotalsStored();

    scan();
    expectSummary({"Duplicates Found", "Media: 0", "Documents: 0", "Others: 0"}, "Review");
    window_->waitForText("Files cleaned so far: 10497 (10.50 MB)");
}

}  // namespace
}  // namespace tarvin
