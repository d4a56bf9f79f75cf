#include "controller/result_fixture.h"
#include "controls/glyph_button.h"
#include "controls/radio_button.h"
#include "interface/folder_list.h"
#include "interface/rule_panel.h"

#include <QLocale>
#include <QMenu>
#include <QTimer>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <memory>

namespace tarvin {

namespace {

/// Three sets: of two photos in "old" and "new", of three photos, and of two texts.
class MarkByRule : public ResultFixture {
 protected:
    MarkByRule() { QLocale::setDefault(QLocale::c()); }

    void SetUp() override {
        write("new/a.jpg", "one");
        write("old/a.jpg", "one");
        write("new/b.jpg", "three");
        write("new/very/long/b.jpg", "three");
        write("old/b.jpg", "three");
        write("new/c.txt", "text text");
        write("old/c.txt", "text text");
        scanAndReview();
    }

    /// A count that was abandoned still uses the fixture's file system.
    void TearDown() override {
        if (delegate) {
            window().markByRuleWindow->ruleCancel->click();
        }
        barrier.open();
        EXPECT_TRUE(comesTrue([] { return RuleCount::running() == 0; }));
    }

    /// Opens the panel by the menu.
    void open() {
        click("buttonMore");
        ASSERT_TRUE(comesTrue([this] { return window().moreMenu->isVisible(); }));
        choose(window().moreMenu, window().markByRuleItem);
        ASSERT_TRUE(panel().isVisible());
    }

    /// Like that of ProductFixture, while time goes by: counts are taken at intervals.
    template <class Condition>
    [[nodiscard]] bool comesTrue(const Condition& condition) {
        return ProductFixture::comesTrue([&] {
            platform.clock().advance(std::chrono::milliseconds(20));
            return condition();
        });
    }

    /// Lets timers of 20 ms, such as that of the task, fire, while no time goes by on its clock.
    void runTimers() {
        int fired = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++fired; });
        timer.start(20);
        EXPECT_TRUE(ProductFixture::comesTrue([&] { return fired >= 3; }));
    }

    void chooseRule(RadioButton* rule) {
        QTest::mouseClick(rule, Qt::LeftButton, {}, QPoint(10, 12));
        EXPECT_TRUE(rule->isChecked());
    }

    /// Adds a folder of the scanned one by the folder panel.
    void add(const char* button, const std::string& name) {
        panels.choice = {{found(name)}};
        click(button);
    }

    [[nodiscard]] RulePanel& panel() { return *window().markByRuleWindow; }
    [[nodiscard]] std::string outcome() { return textOf("ruleOutcome"); }
    [[nodiscard]] std::string blocked() { return textOf("ruleBlocked"); }
    [[nodiscard]] bool shows(const std::string& text) {
        return comesTrue([&] { return outcome() == text; });
    }

    [[nodiscard]] static bool isGone(const FolderList& list, int row) {
        return list.model()->index(row, 0).data(FolderList::goneRole).toBool();
    }

    /// The names of the marked files below the scanned folder.
    [[nodiscard]] Lines marked() {
        Lines names;
        for (const auto& extension : modal().extensions()) {
            for (const auto& set : extension->sets()) {
                for (const auto& file : set->files()) {
                    if (file->state() == CheckState::on) {
                        names.push_back(file->filePath().substr(found("").size()));
                    }
                }
            }
        }
        return names;
    }

    Barrier barrier;
};

TEST_F(MarkByRule, TheFirstFoundStaysAtFirst) {
    open();
    EXPECT_TRUE(panel().ruleFirst->isChecked());
    EXPECT_EQ(covers(), 1);
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    EXPECT_EQ(blocked(), "");
    click("ruleMark");
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(covers(), 0);
    EXPECT_EQ(marked(), (Lines{"old/a.jpg", "new/very/long/b.jpg", "old/b.jpg", "old/c.txt"}));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
}

TEST_F(MarkByRule, ThePanelStaysUntilAnotherThreadHasMarked) {
    delegate->results().setMarkedAsideFrom(0);
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    click("ruleMark");
    EXPECT_TRUE(panel().isVisible());
    delegate->markByRule().mark();
    ASSERT_TRUE(comesTrue([this] { return !panel().isVisible(); }));
    EXPECT_EQ(covers(), 0);
    EXPECT_EQ(marked(), (Lines{"old/a.jpg", "new/very/long/b.jpg", "old/b.jpg", "old/c.txt"}));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
}

TEST_F(MarkByRule, CancelComesTooLateWhileAnotherThreadMarks) {
    delegate->results().setMarkedAsideFrom(0);
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    click("ruleMark");
    QTest::mouseClick(panel().ruleCancel, Qt::LeftButton);
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(covers(), 0);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
    // The next marks open and close nothing.
    click("unMarkAll");
    EXPECT_EQ(covers(), 0);
}

TEST_F(MarkByRule, AnotherRuleIsCountedAndReplacesTheMarks) {
    click("markAll");
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets."));
    EXPECT_EQ(blocked(), "Earlier marks are replaced.");
    chooseRule(panel().ruleLongest);
    ASSERT_TRUE(comesTrue([this] { return panel().ruleMark->isEnabled(); }));
    click("ruleMark");
    ASSERT_TRUE(comesTrue([this] { return !panel().isVisible(); }));
    EXPECT_EQ(marked(), (Lines{"old/a.jpg", "new/b.jpg", "old/b.jpg", "old/c.txt"}));
}

TEST_F(MarkByRule, ThePreferredAndProtectedFoldersCount) {
    open();
    chooseRule(panel().ruleFolder);
    EXPECT_EQ(outcome(), "No preferred folder yet.");
    EXPECT_FALSE(panel().ruleMark->isEnabled());
    add("preferredAdd", "old");
    EXPECT_TRUE(panels.opened.back().canChooseDirectories);
    EXPECT_FALSE(panels.opened.back().mayBeDropped);
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    add("protectedAdd", "new/very");
    ASSERT_TRUE(shows("3 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    click("ruleMark");
    EXPECT_EQ(marked(), (Lines{"new/a.jpg", "new/b.jpg", "new/c.txt"}));
}

TEST_F(MarkByRule, SetsWithoutAFileToMarkAreCounted) {
    open();
    add("protectedAdd", "old");
    ASSERT_TRUE(shows("1 file (0.00 KB) will be marked in 1 set.")) << outcome();
    EXPECT_EQ(blocked(), "2 sets have no copy that may be marked.");
    add("protectedAdd", "new");
    ASSERT_TRUE(shows("No files will be marked."));
    EXPECT_EQ(blocked(), "3 sets have no copy that may be marked.");
    EXPECT_FALSE(panel().ruleMark->isEnabled());
}

TEST_F(MarkByRule, CancelChangesNoMark) {
    click("markAll");
    const Lines before = marked();
    open();
    chooseRule(panel().ruleLongest);
    click("ruleCancel");
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(covers(), 0);
    EXPECT_EQ(marked(), before);
}

TEST_F(MarkByRule, ReturnRightAfterAChangeMarksByTheNewRule) {
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets."));
    chooseRule(panel().ruleLongest);
    QTest::keyClick(window().focusWidget(), Qt::Key_Return);
    ASSERT_TRUE(comesTrue([this] { return !panel().isVisible(); }));
    EXPECT_EQ(marked(), (Lines{"old/a.jpg", "new/b.jpg", "old/b.jpg", "old/c.txt"}));
}

TEST_F(MarkByRule, ReturnRightAfterAChangeMarksNothingThatWasNotShown) {
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets."));
    add("protectedAdd", "new/very");
    panel().ruleMark->setFocus();
    QTest::keyClick(window().focusWidget(), Qt::Key_Return);
    EXPECT_EQ(outcome(), "4 files (0.02 KB) will be marked in 3 sets.");
    ASSERT_TRUE(shows("3 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    EXPECT_TRUE(panel().isVisible());
    EXPECT_EQ(marked(), Lines{});
    QTest::keyClick(window().focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(marked(), (Lines{"old/a.jpg", "old/b.jpg", "old/c.txt"}));
}

TEST_F(MarkByRule, ReturnWhileThePanelOpensMarksNothing) {
    open();
    delegate->markByRule().mark();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets."));
    EXPECT_TRUE(panel().isVisible());
    EXPECT_EQ(marked(), Lines{});
}

TEST_F(MarkByRule, MarkGetsTheFocusBackAfterASlowCount) {
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets."));
    files.beforeCall(FileCall::attributesAtPath, 1, [this] { barrier.wait(); }, found("old"));
    panel().ruleMark->setFocus();
    add("protectedAdd", "old");
    panel().ruleMark->setFocus();
    ASSERT_TRUE(shows("Counting…")) << outcome();
    EXPECT_EQ(window().focusWidget(), panel().ruleFirst);
    barrier.open();
    ASSERT_TRUE(shows("1 file (0.00 KB) will be marked in 1 set."));
    EXPECT_EQ(window().focusWidget(), panel().ruleMark);
    add("protectedAdd", "new");
    panel().ruleMark->setFocus();
    ASSERT_TRUE(shows("No files will be marked."));
    EXPECT_EQ(window().focusWidget(), panel().ruleFirst);
}

TEST_F(MarkByRule, TheFocusStaysWhereTheUserMovedItDuringASlowCount) {
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets."));
    files.beforeCall(FileCall::attributesAtPath, 1, [this] { barrier.wait(); }, found("old"));
    add("protectedAdd", "old");
    panel().ruleMark->setFocus();
    ASSERT_TRUE(shows("Counting…")) << outcome();
    panel().protectedList->setFocus();
    barrier.open();
    ASSERT_TRUE(shows("1 file (0.00 KB) will be marked in 1 set."));
    EXPECT_EQ(window().focusWidget(), panel().protectedList);
}

TEST_F(MarkByRule, ASlowCountSaysSoAndDisablesMark) {
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets."));
    files.beforeCall(FileCall::attributesAtPath, 1, [this] { barrier.wait(); }, found("old"));
    add("protectedAdd", "old");
    ASSERT_TRUE(shows("Counting…")) << outcome();
    EXPECT_FALSE(panel().ruleMark->isEnabled());
    barrier.open();
    ASSERT_TRUE(shows("1 file (0.00 KB) will be marked in 1 set."));
    EXPECT_TRUE(panel().ruleMark->isEnabled());
}

TEST_F(MarkByRule, IsCountedAtMostEvery100Milliseconds) {
    std::atomic<int> lookedUp{0};  // once for each count
    files.beforeCall(
        FileCall::attributesAtPath, FaultyFileSystem::each, [&] { ++lookedUp; }, found("new/very"));
    storeRuleChoice(settings, {KeepRule::first, {}, {found("new/very")}});
    open();
    ASSERT_TRUE(shows("3 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    platform.clock().advance(std::chrono::seconds(1));
    const int earlier = lookedUp;
    chooseRule(panel().ruleNewest);
    ASSERT_TRUE(
        ProductFixture::comesTrue([&] { return lookedUp > earlier && RuleCount::running() == 0; }));
    const int before = lookedUp;
    platform.clock().advance(std::chrono::milliseconds(99));
    chooseRule(panel().ruleOldest);
    chooseRule(panel().ruleLongest);
    runTimers();
    EXPECT_EQ(lookedUp, before);
    platform.clock().advance(std::chrono::milliseconds(1));
    EXPECT_TRUE(ProductFixture::comesTrue([&] { return lookedUp > before; }));
    runTimers();
    EXPECT_EQ(lookedUp, before + 1);
}

TEST_F(MarkByRule, AShortCountDoesNotSaySo) {
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets."));
    platform.clock().advance(std::chrono::seconds(1));
    files.beforeCall(FileCall::attributesAtPath, 1, [this] { barrier.wait(); }, found("old"));
    add("protectedAdd", "old");
    platform.clock().advance(std::chrono::milliseconds(299));
    ASSERT_TRUE(ProductFixture::comesTrue([this] { return barrier.isReached(); }));
    runTimers();
    EXPECT_EQ(outcome(), "4 files (0.02 KB) will be marked in 3 sets.");
    platform.clock().advance(std::chrono::milliseconds(1));
    EXPECT_TRUE(ProductFixture::comesTrue([this] { return outcome() == "Counting…"; }));
}

TEST_F(MarkByRule, ACountThatHangsCanBeCancelled) {
    open();
    files.beforeCall(FileCall::attributesAtPath, 1, [this] { barrier.wait(); }, found("old"));
    add("protectedAdd", "old");
    ASSERT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    click("ruleCancel");
    EXPECT_FALSE(panel().isVisible());
    EXPECT_TRUE(comesTrue([] { return RuleCount::running() == 1; }));
    EXPECT_EQ(marked(), Lines{});
}

TEST_F(MarkByRule, AFolderThatHangsLeavesOneThreadBehindHoweverOftenItIsAskedFor) {
    open();
    files.beforeCall(
        FileCall::attributesAtPath, FaultyFileSystem::each, [this] { barrier.wait(); },
        found("old"));
    add("protectedAdd", "old");
    for (RadioButton* rule : {panel().ruleNewest, panel().ruleOldest, panel().ruleLongest}) {
        chooseRule(rule);
        ASSERT_TRUE(shows("Counting…")) << outcome();
    }
    // The thread that asks, and that of the last count, which waits for it.
    EXPECT_TRUE(comesTrue([] { return RuleCount::running() == 2; })) << RuleCount::running();
    click("ruleCancel");
    EXPECT_TRUE(comesTrue([] { return RuleCount::running() == 1; }));
}

TEST_F(MarkByRule, WithoutTheFolderThatHangsItCounts) {
    open();
    files.beforeCall(
        FileCall::attributesAtPath, FaultyFileSystem::each, [this] { barrier.wait(); },
        found("old"));
    add("protectedAdd", "old");
    add("protectedAdd", "new/very");
    ASSERT_TRUE(shows("Counting…")) << outcome();
    panel().protectedList->setCurrentIndex(panel().protectedList->model()->index(0, 0));
    click("protectedRemove");
    EXPECT_TRUE(shows("3 files (0.02 KB) will be marked in 3 sets.")) << outcome();
}

TEST_F(MarkByRule, AnotherRuleDoesNotWaitForAPreferredFolderThatHangs) {
    files.beforeCall(
        FileCall::attributesAtPath, FaultyFileSystem::each, [this] { barrier.wait(); },
        found("old"));
    storeRuleChoice(settings, {KeepRule::first, {found("old")}, {}});
    open();
    EXPECT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets.")) << outcome();
}

TEST_F(MarkByRule, ButtonsOfTheListsFollowTheSelection) {
    open();
    EXPECT_FALSE(panel().preferredList->isEnabled());
    EXPECT_FALSE(panel().preferredAdd->isEnabled());
    EXPECT_FALSE(panel().protectedRemove->isEnabled());
    chooseRule(panel().ruleFolder);
    EXPECT_FALSE(panel().preferredRemove->isEnabled());
    add("preferredAdd", "old");
    add("preferredAdd", "new");
    EXPECT_TRUE(panel().preferredRemove->isEnabled());
    EXPECT_TRUE(panel().preferredUp->isEnabled());
    EXPECT_FALSE(panel().preferredDown->isEnabled());
    click("preferredUp");
    EXPECT_FALSE(panel().preferredUp->isEnabled());
    EXPECT_TRUE(panel().preferredDown->isEnabled());
    EXPECT_EQ(delegate->markByRule().choice().preferred, (Lines{found("new"), found("old")}));
    QTest::keyClick(panel().preferredList, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(delegate->markByRule().choice().preferred, (Lines{found("old"), found("new")}));
    QTest::keyClick(panel().preferredList, Qt::Key_Delete);
    EXPECT_EQ(delegate->markByRule().choice().preferred, (Lines{found("old")}));
}

TEST_F(MarkByRule, AListedFolderIsOnlySelected) {
    open();
    chooseRule(panel().ruleFolder);
    add("preferredAdd", "old");
    add("preferredAdd", "new");
    add("preferredAdd", "old");
    EXPECT_EQ(delegate->markByRule().choice().preferred, (Lines{found("old"), found("new")}));
    EXPECT_EQ(panel().preferredList->currentIndex().row(), 0);
}

TEST_F(MarkByRule, RuleAndFoldersAreKeptForTheNextTime) {
    open();
    chooseRule(panel().ruleFolder);
    add("preferredAdd", "old");
    add("protectedAdd", "new/very");
    const std::string odd = folder.makeFolder("odd\xFF\xC3");
    panels.choice = {{odd}};
    click("protectedAdd");
    // Before the panel is closed.
    settings.sync();
    const QSettings stored(settings.fileName(), QSettings::IniFormat);
    EXPECT_EQ(storedRuleChoice(stored),
              (RuleChoice{KeepRule::preferred, {found("old")}, {found("new/very"), odd}}));
    click("ruleCancel");
    open();
    EXPECT_TRUE(panel().ruleFolder->isChecked());
    EXPECT_EQ(delegate->markByRule().choice(), storedRuleChoice(stored));
}

TEST_F(MarkByRule, AFolderThatIsGoneKeepsItsRow) {
    const std::string gone = folder.makeFolder("gone");
    storeRuleChoice(settings, {KeepRule::first, {gone}, {gone}});
    std::filesystem::remove(gone);
    open();
    // The preferred folders too, while another rule is chosen.
    for (FolderList* list : {panel().protectedList, panel().preferredList}) {
        ASSERT_TRUE(comesTrue([&] { return isGone(*list, 0); }));
        const QModelIndex row = list->model()->index(0, 0);
        EXPECT_EQ(row.data(Qt::ToolTipRole).toString().toStdString(), gone + " (not there now)");
        EXPECT_EQ(row.data().toString().toStdString(), gone);
    }
}

TEST_F(MarkByRule, APreferredFolderThatIsGoneStillPrefersTheFilesFoundThere) {
    storeRuleChoice(settings, {KeepRule::preferred, {found("old")}, {}});
    std::filesystem::remove_all(found("old"));
    open();
    ASSERT_TRUE(comesTrue([this] { return isGone(*panel().preferredList, 0); }));
    EXPECT_TRUE(panel().preferredList->isEnabled());
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    click("ruleMark");
    EXPECT_EQ(marked(), (Lines{"new/a.jpg", "new/b.jpg", "new/very/long/b.jpg", "new/c.txt"}));
}

TEST_F(MarkByRule, BehindAPreferredFolderThatIsGoneTheNextOneCounts) {
    const std::string gone = folder.makeFolder("gone");
    std::filesystem::remove(gone);
    storeRuleChoice(settings, {KeepRule::preferred, {gone, found("old")}, {}});
    open();
    ASSERT_TRUE(comesTrue([this] { return isGone(*panel().preferredList, 0); }));
    EXPECT_FALSE(isGone(*panel().preferredList, 1));
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    click("ruleMark");
    EXPECT_EQ(marked(), (Lines{"new/a.jpg", "new/b.jpg", "new/very/long/b.jpg", "new/c.txt"}));
}

TEST_F(MarkByRule, FoldersAreLookedForBeforeTheRuleIsComplete) {
    const std::string gone = folder.makeFolder("gone");
    storeRuleChoice(settings, {KeepRule::preferred, {}, {gone}});
    std::filesystem::remove(gone);
    open();
    EXPECT_TRUE(comesTrue([this] { return isGone(*panel().protectedList, 0); }));
    EXPECT_EQ(outcome(), "No preferred folder yet.");
}

TEST_F(MarkByRule, AFolderThatGoesWhileThePanelIsOpenBecomesMuted) {
    const std::string going = folder.makeFolder("going");
    storeRuleChoice(settings, {KeepRule::first, {}, {going}});
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets."));
    EXPECT_FALSE(isGone(*panel().protectedList, 0));
    std::filesystem::remove(going);
    chooseRule(panel().ruleNewest);
    EXPECT_TRUE(comesTrue([this] { return isGone(*panel().protectedList, 0); }));
    folder.makeFolder("going");
    chooseRule(panel().ruleFirst);
    EXPECT_TRUE(comesTrue([this] { return !isGone(*panel().protectedList, 0); }));
}

TEST_F(MarkByRule, AFolderThatCannotBeSeenIsNotGoneAndStillProtects) {
    files.failCall(FileCall::attributesAtPath, FaultyFileSystem::each, EACCES, found("old"));
    // Its path is found out nevertheless.
    const std::string link = folder.makeLink("link", found("old"));
    storeRuleChoice(settings, {KeepRule::first, {}, {link}});
    open();
    ASSERT_TRUE(shows("1 file (0.00 KB) will be marked in 1 set.")) << outcome();
    EXPECT_FALSE(isGone(*panel().protectedList, 0));
    click("ruleMark");
    EXPECT_EQ(marked(), (Lines{"new/very/long/b.jpg"}));
}

TEST_F(MarkByRule, TheSameFolderMayBePreferredAndProtected) {
    storeRuleChoice(settings, {KeepRule::preferred, {found("old")}, {found("old")}});
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    click("ruleMark");
    EXPECT_EQ(marked(), (Lines{"new/a.jpg", "new/b.jpg", "new/very/long/b.jpg", "new/c.txt"}));
}

TEST_F(MarkByRule, APreferredFolderMayBeALink) {
    storeRuleChoice(settings, {KeepRule::preferred, {folder.makeLink("link", found("old"))}, {}});
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    EXPECT_FALSE(isGone(*panel().preferredList, 0));
    click("ruleMark");
    EXPECT_EQ(marked(), (Lines{"new/a.jpg", "new/b.jpg", "new/very/long/b.jpg", "new/c.txt"}));
}

TEST_F(MarkByRule, OfThePreferredRootTheFirstFoundStays) {
    storeRuleChoice(settings, {KeepRule::preferred, {"/"}, {}});
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    click("ruleMark");
    EXPECT_EQ(marked(), (Lines{"old/a.jpg", "new/very/long/b.jpg", "old/b.jpg", "old/c.txt"}));
}

TEST_F(MarkByRule, TheProtectedRootProtectsEverything) {
    storeRuleChoice(settings, {KeepRule::newest, {}, {"/"}});
    open();
    ASSERT_TRUE(shows("No files will be marked.")) << outcome();
    EXPECT_EQ(blocked(), "3 sets have no copy that may be marked.");
}

TEST_F(MarkByRule, AFileIsShownAsAFolderThatIsNotThere) {
    storeRuleChoice(settings, {KeepRule::preferred, {found("old/a.jpg")}, {found("old/b.jpg")}});
    open();
    ASSERT_TRUE(shows("4 files (0.02 KB) will be marked in 3 sets.")) << outcome();
    EXPECT_TRUE(isGone(*panel().preferredList, 0));
    EXPECT_TRUE(isGone(*panel().protectedList, 0));
}

TEST_F(MarkByRule, DamagedSettingsAreIgnored) {
    settings.setValue("MarkByRule/Keep", "nonsense");
    settings.setValue("MarkByRule/PreferredFolders", QStringList{"relative", "", "/a%20b", "/a b"});
    EXPECT_EQ(storedRuleChoice(settings), (RuleChoice{KeepRule::first, {"/a b"}, {}}));
}

TEST_F(MarkByRule, OnlyTheTabInViewIsMarked) {
    click("documentButton");
    if (window().informationWindow->isVisible()) {
        click("scanInforOKBtn");
    }
    open();
    ASSERT_TRUE(shows("1 file (0.01 KB) will be marked in 1 set.")) << outcome();
    click("ruleMark");
    EXPECT_EQ(marked(), (Lines{"old/c.txt"}));
}

TEST_F(MarkByRule, OpensByCtrlR) {
    QTest::keyClick(window().focusWidget(), Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(panel().isVisible());
}

TEST_F(MarkByRule, ThereIsNothingToMarkWithoutSets) {
    delegate->results().begin(std::make_shared<Modal>());
    delegate->results().reload();
    QTest::keyClick(window().focusWidget(), Qt::Key_R, Qt::ControlModifier);
    EXPECT_FALSE(panel().isVisible());
    click("buttonMore");
    ASSERT_TRUE(comesTrue([this] { return window().moreMenu->isVisible(); }));
    EXPECT_FALSE(window().markByRuleItem->isEnabled());
    window().moreMenu->close();
}

}  // namespace

}  // namespace tarvin
