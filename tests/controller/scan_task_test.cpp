#include "controller/home_image.h"
#include "controller/product_fixture.h"
#include "controller/visibility_counter.h"
#include "controls/button_settings_saved.h"
#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/progress_bar.h"
#include "controls/scan_animation.h"
#include "controls/state_label.h"
#include "interface/about_panel.h"
#include "interface/location_screen.h"
#include "interface/notice_panel.h"
#include "interface/progress_screen.h"
#include "interface/text_block.h"
#include "support/niceness.h"

#include <QAction>
#include <QLabel>
#include <atomic>
#include <map>
#include <new>

namespace tarvin {
namespace {

class Scanning : public ProductFixture {
 protected:
    void writeDuplicates() {
        for (const char* name : {"photos/a.jpg", "photos/b.jpg", "photos/c.txt", "photos/d.txt"}) {
            folder.writeFile(name, "equal");
        }
        folder.writeFile("photos/alone.jpg", "other");
    }

    void begin() {
        launch({folder.makeFolder("photos")});
        click("findDuplicateExact");
    }

    /// Blocks the scan at its first read of contents.
    void beginAndHoldComparison() {
        writeDuplicates();
        files.beforeCall(FileCall::openFile, FaultyFileSystem::each, [this] { barrier.wait(); });
        begin();
        EXPECT_TRUE(comesTrue([this] { return barrier.isReached(); }));
        EXPECT_TRUE(comesTrue([this] { return bar().total() == 5; }));
    }

    void beginAndHoldCollection() {
        writeDuplicates();
        files.beforeCall(FileCall::listEntries, 1, [this] { barrier.wait(); }, "photos");
        begin();
        EXPECT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    }

    [[nodiscard]] ProgressScreen& progress() { return *window().progress; }
    [[nodiscard]] ProgressBar& bar() { return *progress().similarIndicator; }

    Barrier barrier;
    Barrier second;
};

TEST_F(Scanning, ShowsTheResultWhenEveryFileIsAccountedFor) {
    writeDuplicates();
    begin();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_EQ(bar().total(), 5U);
    EXPECT_EQ(bar().done(), 5U);
    EXPECT_EQ(delegate->scan().run().result().modal->totalFiles(), 2U);
    EXPECT_FALSE(delegate->scan().scanning());
    EXPECT_TRUE(window().buttonHelpManual->isEnabled());
    EXPECT_TRUE(delegate->locations().list().rows().empty());
    click("scanInforOKBtn");
    click("buttonHomePage");
    EXPECT_EQ(screen(), QStringLiteral("1"));
    EXPECT_EQ(delegate->scan().run().result().modal->totalFiles(), 0U);
}

TEST_F(Scanning, SaysWhichFolderItWaitsFor) {
    beginAndHoldCollection();
    const ElidedLabel& line = *progress().similarProcessing;
    const QString told =
        QStringLiteral("Waiting for: ") + QString::fromStdString(folder.pathOf("photos"));
    EXPECT_TRUE(comesTrue([&] { return line.text() == told; }));
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, SaysThatMemoryRanOut) {
    writeDuplicates();
    files.beforeCall(FileCall::openFile, 1, [] { throw std::bad_alloc(); });
    begin();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    EXPECT_EQ(alerts.shown.back().informativeText,
              QStringLiteral(
                  "There was not enough memory to finish the scan. The result is incomplete."));
}

TEST_F(Scanning, RefusesFoldersOfAnotherInstance) {
    beginAndHoldComparison();
    platform.runningInstances().openInThis({folder.makeFolder("more")});
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    EXPECT_EQ(alerts.shown[0].informativeText,
              QStringLiteral("To scan other folders, return to the start screen first."));
    EXPECT_TRUE(delegate->scan().scanning());
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_TRUE(delegate->locations().list().rows().empty());
}

TEST_F(Scanning, SkipsExcludedFiles) {
    writeDuplicates();
    ExceptionFile exceptions(folder.pathOf("support"));
    exceptions.addExceptions({folder.pathOf("photos/a.jpg")});
    begin();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_EQ(bar().total(), 4U);
    EXPECT_EQ(delegate->scan().run().result().modal->totalFiles(), 1U);
}

TEST_F(Scanning, ScansHiddenFilesUnlessTheyAreToBeSkipped) {
    for (const char* name : {"photos/a.jpg", "photos/.b.jpg", "photos/.hidden/c.jpg"}) {
        folder.writeFile(name, "equal");
    }
    begin();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_EQ(delegate->scan().run().result().modal->totalFiles(), 2U);
}

TEST_F(Scanning, SkipsHiddenFilesIfTheItemIsChecked) {
    for (const char* name :
         {"photos/a.jpg", "photos/.b.jpg", "photos/c.jpg", "photos/.hidden/d.jpg"}) {
        folder.writeFile(name, "equal");
    }
    launch({folder.pathOf("photos")});
    EXPECT_FALSE(window().skipHiddenItem->isChecked());
    click("buttonMore");
    ASSERT_TRUE(comesTrue([this] { return window().moreMenu->isVisible(); }));
    choose(window().moreMenu, window().skipHiddenItem);
    EXPECT_TRUE(window().skipHiddenItem->isChecked());
    click("findDuplicateExact");
    EXPECT_TRUE(comesTo("4"));
    EXPECT_EQ(delegate->scan().run().result().modal->totalFiles(), 1U);
}

TEST_F(Scanning, RemembersTheChoicesOfTheMenu) {
    launch();
    const auto choices = [this] {
        return std::map<const char*, QAction*>{{skipHiddenKey, window().skipHiddenItem},
                                               {rememberScansKey, window().rememberScansItem},
                                               {backgroundKey, window().backgroundItem}};
    };
    for (const auto& [key, item] : choices()) {
        EXPECT_FALSE(item->isChecked()) << key;
        item->trigger();
        EXPECT_TRUE(settings.value(key).toBool()) << key;
    }
    delegate = nullptr;
    launch();
    for (const auto& [key, item] : choices()) {
        EXPECT_TRUE(item->isChecked()) << key;
        item->trigger();
        EXPECT_FALSE(settings.value(key).toBool()) << key;
    }
}

TEST_F(Scanning, InTheBackgroundGivesWayToAllOthers) {
    writeDuplicates();
    std::atomic<int> niceness{0};
    files.beforeCall(FileCall::openFile, FaultyFileSystem::each,
                     [&] { niceness = nicenessOfThisThread(); });
    for (const bool isInBackground : {false, true}) {
        launch({folder.pathOf("photos")});
        window().backgroundItem->setChecked(isInBackground);
        click("findDuplicateExact");
        EXPECT_TRUE(comesTo("4"));
        EXPECT_EQ(niceness == maxNiceness, isInBackground);
        delegate = nullptr;
    }
    EXPECT_LT(nicenessOfThisThread(), maxNiceness);
}

TEST_F(Scanning, ShowsWhatItCollects) {
    beginAndHoldCollection();
    EXPECT_EQ(screen(), QStringLiteral("5"));
    EXPECT_TRUE(bar().isIndeterminate());
    EXPECT_EQ(progress().similarProcessing->text(), QStringLiteral("Collecting Files..."));
    EXPECT_EQ(progress().textelapse->text(), QStringLiteral("Elapsed Time: 00:00:00"));
    EXPECT_FALSE(window().buttonHelpManual->isEnabled());
    EXPECT_TRUE(progress().animationImage->isAnimating());
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, ShowsWhatItCompares) {
    beginAndHoldComparison();
    EXPECT_FALSE(bar().isIndeterminate());
    EXPECT_EQ(progress().searchStatus->text(), QStringLiteral("Searching for duplicate files..."));
    EXPECT_EQ(progress().progressTypeText->text(), QStringLiteral("Searching for duplicate files"));
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, NamesTheFileItIsAt) {
    folder.writeFile("photos/a/1.jpg", "1");
    folder.writeFile("photos/a/2.jpg", "of another size");
    folder.writeFile("photos/a/3.txt", "equal");
    folder.writeFile("photos/a/4.txt", "equal");
    folder.makeFolder("photos/b");
    files.setListingOrder(ListingOrder::sorted);
    files.beforeCall(FileCall::listEntries, 1, [this] { barrier.wait(); }, "photos/b");
    files.beforeCall(FileCall::openFile, FaultyFileSystem::each, [this] { second.wait(); });
    begin();
    const auto names = [&](const char* beginning) {
        return progress().similarProcessing->text().startsWith(
            QLatin1String(beginning) + QString::fromStdString(folder.pathOf("photos/a/")));
    };
    EXPECT_TRUE(comesTrue([&] { return names("Collecting Files: "); }));
    // Progress is throttled, so not every file is reported.
    const std::uint64_t redrawn = delegate->scan().redraws() + 4;
    EXPECT_TRUE(comesTrue([&] { return delegate->scan().redraws() >= redrawn; }));
    barrier.open();
    // The images differ in size and are not opened; one text waits for the other.
    EXPECT_TRUE(comesTrue([this] { return second.isReached(); }));
    EXPECT_TRUE(comesTrue([&] { return names("Processing File: ") && bar().done() == 3; }));
    second.open();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_EQ(bar().done(), 4U);
}

TEST_F(Scanning, WithoutFilesSaysSoAndGoesHome) {
    begin();
    EXPECT_TRUE(comesTrue([this] { return alerts.shown.size() == 1; }));
    EXPECT_EQ(alerts.shown[0].messageText, QStringLiteral("Tarvin Duplicate File Remover"));
    EXPECT_EQ(alerts.shown[0].informativeText, QStringLiteral("No duplicates File found"));
    EXPECT_EQ(screen(), QStringLiteral("5"));
    EXPECT_FALSE(progress().animationImage->isAnimating());
    EXPECT_TRUE(comesTrue([this] { return !bar().isIndeterminate(); }));
    alerts.press(0);
    EXPECT_EQ(screen(), QStringLiteral("1"));
    EXPECT_FALSE(delegate->scan().scanning());
}

/// The images are compared before the texts.
class ScanDetails : public Scanning {
 protected:
    /// Blocks the scan at its texts, with a quarter of the bytes compared.
    void beginAndCompareAQuarter() {
        for (const char* name : {"photos/a.jpg", "photos/b.jpg"}) {
            folder.writeFile(name, std::string(500'000, 'i'));
        }
        for (const char* name : {"photos/c.txt", "photos/d.txt"}) {
            folder.writeFile(name, std::string(1'500'000, 't'));
        }
        for (const char* image : {"a.jpg", "b.jpg"}) {
            files.beforeCall(FileCall::openFile, 1, [this] { barrier.wait(); }, image);
        }
        for (const char* text : {"c.txt", "d.txt"}) {
            files.beforeCall(FileCall::openFile, 1, [this] { second.wait(); }, text);
        }
        begin();
        EXPECT_TRUE(says("0 KB of 4.0 MB compared"));
        barrier.open();
        EXPECT_TRUE(says("1.0 MB of 4.0 MB compared"));
    }

    bool says(const char* details) {
        return comesTrue(
            [&] { return progress().progressDetails->text() == QString::fromUtf8(details); });
    }

    [[nodiscard]] QString state() {
        return progress().progressState->isVisible() ? progress().progressState->text() : QString();
    }
};

TEST_F(ScanDetails, ShowBytesAndTimeLeft) {
    beginAndCompareAQuarter();
    platform.clock().advance(std::chrono::seconds(10));
    EXPECT_TRUE(says("1.0 MB of 4.0 MB compared · less than a minute left"));
    second.open();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_EQ(delegate->scan().run().bytesCompared(), (BytesCompared{4'000'000, 4'000'000}));
}

TEST_F(ScanDetails, AreEmptyDuringTheCollection) {
    beginAndHoldCollection();
    EXPECT_TRUE(says(""));
    click("pauseResume");
    EXPECT_EQ(state(), QStringLiteral("Paused"));
    EXPECT_TRUE(says(""));
    click("pauseResume");
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(ScanDetails, SayThatTheUserPausedTheScan) {
    beginAndCompareAQuarter();
    platform.clock().advance(std::chrono::seconds(10));
    EXPECT_TRUE(says("1.0 MB of 4.0 MB compared · less than a minute left"));
    EXPECT_EQ(state(), QString());
    click("pauseResume");
    EXPECT_EQ(state(), QStringLiteral("Paused"));
    EXPECT_TRUE(says("1.0 MB of 4.0 MB compared"));
    click("pauseResume");
    EXPECT_EQ(state(), QString());
    EXPECT_TRUE(says("1.0 MB of 4.0 MB compared · less than a minute left"));
    second.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(ScanDetails, DoNotCallAQuestionAPause) {
    beginAndCompareAQuarter();
    const VisibilityCounter label(progress().progressState);
    click("stopButton");
    EXPECT_EQ(state(), QString());
    EXPECT_EQ(label.shown(), 0);
    click("cancelNo");
    EXPECT_EQ(state(), QString());
    click("pauseResume");
    EXPECT_FALSE(window().close());
    EXPECT_EQ(state(), QString());
    click("runningAlertOk");
    EXPECT_EQ(state(), QString());
    second.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(ScanDetails, SayThatTheScanStops) {
    beginAndCompareAQuarter();
    click("stopButton");
    const QString file = progress().similarProcessing->text();
    const std::uint64_t done = bar().done();
    click("cancelYes");
    EXPECT_EQ(state(), QStringLiteral("Stopping…"));
    EXPECT_EQ(progress().progressDetails->text(), QStringLiteral("1.0 MB of 4.0 MB compared"));
    EXPECT_EQ(progress().similarProcessing->text(), file);
    EXPECT_EQ(bar().done(), done);
    EXPECT_EQ(progress().pauseResume->text(), QStringLiteral("Pause"));
    EXPECT_FALSE(progress().pauseResume->isEnabled());
    EXPECT_FALSE(progress().stopButton->isEnabled());
    EXPECT_FALSE(progress().animationImage->isAnimating());
    second.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(ScanDetails, SayWhatASlowStopWaitsFor) {
    beginAndCompareAQuarter();
    click("stopButton");
    click("cancelYes");
    EXPECT_EQ(progress().progressDetails->text(), QStringLiteral("1.0 MB of 4.0 MB compared"));
    // Two files are still being opened, for which the stop waits a little.
    platform.clock().advance(std::chrono::seconds(5));
    EXPECT_TRUE(says("Waiting for the file in hand."));
    EXPECT_EQ(state(), QStringLiteral("Stopping…"));
    second.open();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_TRUE(delegate->scan().run().wasStopped());
}

TEST_F(ScanDetails, StayWithAStopDespiteTheNoticeOfClosing) {
    beginAndCompareAQuarter();
    click("stopButton");
    click("cancelYes");
    EXPECT_FALSE(window().close());
    EXPECT_EQ(state(), QStringLiteral("Stopping…"));
    click("runningAlertOk");
    EXPECT_EQ(state(), QStringLiteral("Stopping…"));
    EXPECT_FALSE(progress().stopButton->isEnabled());
    second.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, PausesAndGoesOn) {
    beginAndHoldComparison();
    click("pauseResume");
    EXPECT_TRUE(delegate->scan().run().pause());
    EXPECT_EQ(progress().pauseResume->text(), QStringLiteral("Resume"));
    EXPECT_EQ(progress().pauseResume->accessibleName(), QStringLiteral("Resume"));
    EXPECT_FALSE(progress().stopButton->isEnabled());
    EXPECT_FALSE(progress().animationImage->isAnimating());
    click("pauseResume");
    EXPECT_FALSE(delegate->scan().run().pause());
    EXPECT_EQ(progress().pauseResume->text(), QStringLiteral("Pause"));
    EXPECT_TRUE(progress().stopButton->isEnabled());
    EXPECT_TRUE(progress().animationImage->isAnimating());
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, ShowsNoProgressDuringAPause) {
    beginAndHoldComparison();
    click("pauseResume");
    const QString label = progress().similarProcessing->text();
    const std::uint64_t done = bar().done();
    // The current file is finished.
    barrier.open();
    const std::uint64_t redrawn = delegate->scan().redraws() + 3;
    EXPECT_TRUE(comesTrue([&] { return delegate->scan().redraws() >= redrawn; }));
    EXPECT_EQ(progress().similarProcessing->text(), label);
    EXPECT_EQ(bar().done(), done);
    EXPECT_EQ(screen(), QStringLiteral("5"));
    click("pauseResume");
    EXPECT_TRUE(comesTo("4"));
    EXPECT_EQ(bar().done(), 5U);
}

TEST_F(Scanning, LetsTheBarRestWhileTheCollectionIsPaused) {
    writeDuplicates();
    files.beforeCall(FileCall::listEntries, 1, [this] { barrier.wait(); }, "photos");
    begin();
    EXPECT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    EXPECT_TRUE(comesTrue([this] { return bar().clock().isRunning(); }));
    click("pauseResume");
    barrier.open();
    EXPECT_TRUE(comesTrue([this] { return !bar().clock().isRunning(); }));
    click("pauseResume");
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, StoppedDuringAPauseGoesOnIfTheAnswerIsNo) {
    beginAndHoldComparison();
    click("pauseResume");
    delegate->scan().stop();  // its button is disabled
    EXPECT_TRUE(window().confirmationView->isVisible());
    click("cancelNo");
    EXPECT_FALSE(delegate->scan().run().pause());
    EXPECT_EQ(progress().pauseResume->text(), QStringLiteral("Pause"));
    EXPECT_TRUE(progress().stopButton->isEnabled());
    EXPECT_TRUE(progress().animationImage->isAnimating());
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, TheFocusReturnsToStopAfterTheAnswerNo) {
    beginAndHoldComparison();
    progress().stopButton->setFocus();
    click("stopButton");
    EXPECT_EQ(window().focusWidget(), window().cancelNo);
    click("cancelNo");
    EXPECT_EQ(window().focusWidget(), progress().stopButton);
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, StoppedBesideTheNoticeOfClosingGoesOnIfTheAnswerIsNo) {
    beginAndHoldComparison();
    EXPECT_FALSE(window().close());
    delegate->scan().stop();
    click("cancelNo");
    EXPECT_FALSE(delegate->scan().run().pause());
    EXPECT_EQ(progress().pauseResume->text(), QStringLiteral("Pause"));
    EXPECT_TRUE(progress().stopButton->isEnabled());
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, StoppedBesideTheNoticeOfClosingTakesTheNoticeAway) {
    beginAndHoldComparison();
    EXPECT_FALSE(window().close());
    delegate->scan().stop();
    click("cancelYes");
    EXPECT_FALSE(window().runningAlert->isVisible());
    EXPECT_FALSE(window().confirmationView->isVisible());
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

/// The workers may be at the last file when the pause begins.
TEST_F(Scanning, ThatEndsTakesTheNoticeOfClosingAway) {
    beginAndHoldComparison();
    EXPECT_FALSE(window().close());
    delegate->scan().run().setPause(false);
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_FALSE(window().runningAlert->isVisible());
}

TEST_F(Scanning, WithoutFilesTakesNoticeAndQuestionAway) {
    files.beforeCall(FileCall::listEntries, 1, [this] { barrier.wait(); }, "photos");
    begin();
    ASSERT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    click("stopButton");
    EXPECT_FALSE(window().close());
    delegate->scan().run().setPause(false);
    barrier.open();
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    EXPECT_FALSE(window().runningAlert->isVisible());
    EXPECT_FALSE(window().confirmationView->isVisible());
    alerts.press(0);
    EXPECT_EQ(screen(), QStringLiteral("1"));
}

TEST_F(Scanning, PausedBeforeTheNoticeOfClosingGoesOnWithItsOk) {
    beginAndHoldComparison();
    click("pauseResume");
    EXPECT_FALSE(window().close());
    click("runningAlertOk");
    EXPECT_FALSE(delegate->scan().run().pause());
    EXPECT_EQ(progress().pauseResume->text(), QStringLiteral("Pause"));
    EXPECT_TRUE(progress().stopButton->isEnabled());
    EXPECT_TRUE(progress().animationImage->isAnimating());
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, WaitsForTheAnswerWhetherToStopBehindTheNoticeOfClosing) {
    beginAndHoldComparison();
    click("stopButton");
    EXPECT_FALSE(window().close());
    click("runningAlertOk");
    EXPECT_TRUE(delegate->scan().run().pause());
    EXPECT_FALSE(progress().animationImage->isAnimating());
    EXPECT_FALSE(progress().stopButton->isEnabled());
    EXPECT_TRUE(window().confirmationView->isVisible());
    click("cancelNo");
    EXPECT_FALSE(delegate->scan().run().pause());
    EXPECT_EQ(progress().pauseResume->text(), QStringLiteral("Pause"));
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, BeginsWithoutThePanelsOfTheScreenBefore) {
    writeDuplicates();
    launch({folder.pathOf("photos")});
    window().showAbout();
    window().showNotice(window().runningAlert, {220, 50});
    delegate->scan().buttonFindDuplicatesExactClicked();
    EXPECT_FALSE(window().windowAboutPanel->isVisible());
    EXPECT_FALSE(window().runningAlert->isVisible());
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, EndsWhenItsResultIsForgotten) {
    beginAndHoldComparison();
    delegate->scan().pause();
    barrier.open();
    delegate->homeCleanup();
    EXPECT_FALSE(delegate->scan().scanning());
    EXPECT_FALSE(delegate->scan().run().scanning());
    QCoreApplication::processEvents();
    EXPECT_EQ(screen(), QStringLiteral("5"));
}

TEST_F(Scanning, StopPausesAndAsks) {
    beginAndHoldComparison();
    click("stopButton");
    EXPECT_TRUE(window().confirmationView->isVisible());
    EXPECT_TRUE(delegate->scan().run().pause());
    EXPECT_FALSE(progress().pauseResume->isEnabled());
    click("cancelNo");
    EXPECT_FALSE(window().confirmationView->isVisible());
    EXPECT_FALSE(delegate->scan().run().pause());
    EXPECT_TRUE(progress().pauseResume->isEnabled());
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Scanning, StoppedWhileItComparesShowsConfirmedSets) {
    beginAndHoldComparison();
    click("stopButton");
    click("cancelYes");
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_FALSE(window().confirmationView->isVisible());
    EXPECT_FALSE(delegate->scan().scanning());
    EXPECT_EQ(delegate->scan().run().result().modal->totalFiles(), 0U);
}

TEST_F(Scanning, StoppedBetweenTwoLocationsShowsAnEmptyResultAndResetsEverything) {
    writeDuplicates();
    files.beforeCall(FileCall::listEntries, 1, [this] { barrier.wait(); }, "photos");
    launch({folder.pathOf("photos"), folder.makeFolder("more")});
    click("findDuplicateExact");
    ASSERT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    click("stopButton");
    click("cancelYes");
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(delegate->scan().run().result().modal->extensionCount(), 0U);
    EXPECT_TRUE(delegate->locations().list().rows().empty());
    EXPECT_TRUE(delegate->locations().history().folderBrowser().empty());
    EXPECT_TRUE(progress().pauseResume->isEnabled());
    EXPECT_EQ(progress().pauseResume->text(), QStringLiteral("Pause"));
}

TEST_F(Scanning, StoppedInTheLastLocationComparesNothing) {
    writeDuplicates();
    folder.writeFile("photos/inner/last.txt", "last");
    files.setListingOrder(ListingOrder::sorted);
    files.beforeCall(FileCall::listEntries, 1, [this] { barrier.wait(); }, "photos/inner");
    begin();
    ASSERT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    click("stopButton");
    click("cancelYes");
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(delegate->scan().run().result().modal->extensionCount(), 0U);
}

/// No further location checks for the stop.
TEST_F(Scanning, StoppedInTheLastLocationBeforeItsFirstFileSaysThatThereAreNone) {
    beginAndHoldCollection();
    click("stopButton");
    click("cancelYes");
    barrier.open();
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    EXPECT_EQ(alerts.shown[0].informativeText, QStringLiteral("No duplicates File found"));
    alerts.press(0);
    EXPECT_EQ(screen(), QStringLiteral("1"));
    EXPECT_FALSE(delegate->scan().run().stop());
}

TEST_F(Scanning, KeepsTheWindowOpenAndWaitsForTheAnswer) {
    beginAndHoldComparison();
    EXPECT_FALSE(window().close());
    EXPECT_EQ(terminations, 0);
    EXPECT_TRUE(window().runningAlert->isVisible());
    EXPECT_EQ(window().runningAlertText->text(),
              QStringLiteral("A operation is in progress. Please stop the current process."));
    EXPECT_TRUE(delegate->scan().run().pause());
    EXPECT_FALSE(progress().animationImage->isAnimating());
    // The counter of the home image changes only at the end of the program.
    EXPECT_FALSE(settings.contains(homeImageKey));
    click("runningAlertOk");
    EXPECT_FALSE(window().runningAlert->isVisible());
    EXPECT_FALSE(delegate->scan().run().pause());
    EXPECT_TRUE(progress().animationImage->isAnimating());
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_TRUE(window().close());
    EXPECT_EQ(settings.value(homeImageKey).toString(), QStringLiteral("2"));
}

TEST_F(Scanning, ASecondScanIsIndependentOfTheFirst) {
    writeDuplicates();
    begin();
    EXPECT_TRUE(comesTo("4"));
    click("scanInforOKBtn");
    click("buttonHomePage");
    files.beforeCall(FileCall::listEntries, 1, [this] { barrier.wait(); }, "photos");
    delegate->locations().openWith({folder.pathOf("photos")});
    click("findDuplicateExact");
    EXPECT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    EXPECT_EQ(bar().done(), 0U);
    EXPECT_EQ(progress().similarProcessing->text(), QStringLiteral("Collecting Files..."));
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
    EXPECT_EQ(delegate->scan().run().result().modal->totalFiles(), 2U);
}

TEST_F(Scanning, EndsWithTheProgramInTheMiddleOfAFile) {
    beginAndHoldComparison();
    delegate->scan().run().requestStop();
    barrier.open();
    delegate.reset();
    EXPECT_FALSE(platform.runningInstances().hasJoined());
}

}  // namespace
}  // namespace tarvin
