#include "controller/remembered_scans.h"

#include "controller/product_fixture.h"
#include "interface/main_window.h"
#include "store/scan_memory.h"

#include <atomic>
#include <chrono>
#include <filesystem>
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

    [[nodiscard]] bool isStored() const {
        return std::filesystem::exists(ScanMemory::pathIn(folder.pathOf("support")));
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

}  // namespace
}  // namespace tarvin
