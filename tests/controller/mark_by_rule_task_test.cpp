#include "controller/result_fixture.h"
#include "controls/glyph_button.h"
#include "controls/radio_button.h"
#include "interface/folder_list.h"
#include "interface/rule_panel.h"

#include <QLocale>
#include <QMenu>
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

TEST_F(MarkByRule, ACountThatHangsCanBeCancelled) {
    open();
    files.beforeCall(FileCall::attributesAtPath, 1, [this] { barrier.wait(); }, found("old"));
    add("protectedAdd", "old");
    ASSERT_TRUE(comesTrue([this] { return barrier.isReached(); }));
    click("ruleCancel");
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(RuleCount::running(), 1);
    EXPECT_EQ(marked(), Lines{});
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
    click("ruleCancel");
    settings.sync();
    const QSettings stored(settings.fileName(), QSettings::IniFormat);
    EXPECT_EQ(storedRuleChoice(stored),
              (RuleChoice{KeepRule::preferred, {found("old")}, {found("new/very"), odd}}));
    open();
    EXPECT_TRUE(panel().ruleFolder->isChecked());
    EXPECT_EQ(delegate->markByRule().choice(), storedRuleChoice(stored));
}

TEST_F(MarkByRule, AFolderThatIsGoneKeepsItsRow) {
    const std::string gone = folder.makeFolder("gone");
    storeRuleChoice(settings, {KeepRule::first, {}, {gone}});
    std::filesystem::remove(gone);
    open();
    const auto row = [this] { return panel().protectedList->model()->index(0, 0); };
    ASSERT_TRUE(comesTrue([&] { return row().data(FolderList::goneRole).toBool(); }));
    EXPECT_EQ(row().data(Qt::ToolTipRole).toString().toStdString(), gone + " (not there now)");
    EXPECT_EQ(row().data().toString().toStdString(), gone);
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
