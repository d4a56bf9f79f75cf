#include "controller/remembered_scans.h"

#include "controller/product_fixture.h"
#include "interface/main_window.h"
#include "store/scan_memory.h"
#include "support/file_content.h"

#include <QCoreApplication>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <variant>

namespace tarvin {
namespace {

class RememberedScansTest : public ProductFixture {
 protected:
    RememberedScansTest() {
        folder.writeFile("photos/a.jpg", "equal");
        folder.writeFile("photos/b.jpg", "equal");
        files.setVolumeName("a disk");
        files.beforeCall(
            FileCall::openFile, FaultyFileSystem::each, [this] { ++openedPhotos_; }, ".jpg");
        // The dates of the files have settled.
        platform.clock().set(std::chrono::system_clock::now() + std::chrono::hours(1));
    }

    /// Scans once; returns how many of the photos were opened.
    int scan(bool remembers) {
        launch({folder.pathOf("photos")});
        window().rememberScansItem->setChecked(remembers);
        openedPhotos_ = 0;
        click("findDuplicateExact");
        EXPECT_TRUE(comesTo("4"));
        EXPECT_EQ(delegate->scan().run().result().modal->totalFiles(), 1U);
        delegate->scan().run().waitForMemory();
        return openedPhotos_;
    }

    [[nodiscard]] std::string memoryPath() const {
        return ScanMemory::pathIn(folder.pathOf("support"));
    }
    [[nodiscard]] bool isStored() const { return std::filesystem::exists(memoryPath()); }

    /// The text of the only alert, once there is one.
    [[nodiscard]] QString reported() {
        EXPECT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
        EXPECT_EQ(alerts.shown.size(), 1U);
        return alerts.shown.empty() ? QString() : alerts.shown.back().informativeText;
    }

 private:
    std::atomic<int> openedPhotos_{0};
};

TEST_F(RememberedScansTest, ReadUnchangedFilesOnlyOnce) {
    EXPECT_EQ(scan(true), 2);
    EXPECT_TRUE(isStored());
    delegate = nullptr;
    EXPECT_EQ(scan(true), 0);
}

TEST_F(RememberedScansTest, AreOffAtFirst) {
    launch();
    EXPECT_FALSE(window().rememberScansItem->isChecked());
    delegate = nullptr;
    EXPECT_EQ(scan(false), 2);
    EXPECT_FALSE(isStored());
}

TEST_F(RememberedScansTest, AreRemovedWhenTheItemIsUnchecked) {
    scan(true);
    window().rememberScansItem->setChecked(false);
    EXPECT_TRUE(comesTrue([this] { return !isStored(); }));
    EXPECT_TRUE(alerts.shown.empty());
    delegate = nullptr;
    EXPECT_EQ(scan(false), 2);
}

TEST_F(RememberedScansTest, ThatCannotBeRemovedAreReported) {
    scan(true);
    const auto other = ScanMemory::open(folder.pathOf("support"));
    ASSERT_TRUE(std::holds_alternative<ScanMemory>(other));
    window().rememberScansItem->setChecked(false);
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    EXPECT_EQ(alerts.shown.back().informativeText,
              QStringLiteral("The remembered scans could not be removed."));
    EXPECT_TRUE(isStored());
}

TEST_F(RememberedScansTest, ThatCannotBeReadAreReportedAndNotNeeded) {
    scan(true);
    delegate = nullptr;
    const auto other = ScanMemory::open(folder.pathOf("support"));
    ASSERT_TRUE(std::holds_alternative<ScanMemory>(other));
    EXPECT_EQ(scan(true), 2);
    EXPECT_EQ(reported(),
              QStringLiteral("The remembered scans could not be used: in use by another process"));
}

TEST_F(RememberedScansTest, OfANewerVersionAreReportedAndKept) {
    scan(true);
    delegate = nullptr;
    // Bytes 60 to 63 are SQLite's user version.
    std::fstream(memoryPath(), std::ios::in | std::ios::out | std::ios::binary).seekp(63) << '\3';
    const std::string before = contentOf(memoryPath());
    EXPECT_EQ(scan(true), 2);
    EXPECT_EQ(reported(), QStringLiteral("The remembered scans could not be used: written by a "
                                         "newer version of the program"));
    EXPECT_EQ(contentOf(memoryPath()), before);
}

TEST_F(RememberedScansTest, ThatWereDamagedAreReportedOnce) {
    scan(true);
    delegate = nullptr;
    std::filesystem::resize_file(memoryPath(), 5000);
    EXPECT_EQ(scan(true), 2);
    EXPECT_EQ(reported(),
              QStringLiteral("The remembered scans were damaged. This scan has read all files."));
    delegate = nullptr;
    alerts.shown.clear();
    EXPECT_EQ(scan(true), 0);
    QCoreApplication::processEvents();
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(RememberedScansTest, ThatCannotBeStoredAreReported) {
    // The first scan finds a memory of its own, which is taken while it compares.
    std::optional<StoreResult<ScanMemory>> other;
    files.beforeCall(
        FileCall::openFile, 1, [&] { other.emplace(ScanMemory::open(folder.pathOf("support"))); },
        "a.jpg");
    scan(true);
    ASSERT_TRUE(other && std::holds_alternative<ScanMemory>(*other));
    EXPECT_EQ(reported(),
              QStringLiteral("This scan could not be remembered: in use by another process"));
}

}  // namespace
}  // namespace tarvin
