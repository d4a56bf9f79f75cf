#include "controls/button_hover_simple.h"
#include "controls/hover_button.h"
#include "controls/windows_like_button.h"
#include "interface/progress_screen.h"
#include "interface/property_text.h"
#include "interface/result_panels.h"
#include "interface/result_screen.h"
#include "interface/result_tree_view.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"
#include "interface/window_covers.h"

#include <QAction>
#include <QSignalSpy>

namespace tarvin {

namespace {

struct Shortcut {
    const char* screen;
    Qt::KeyboardModifiers modifiers;
    Qt::Key key;
    const char* button;
};

const Shortcut shortcuts[] = {
    {"2", Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_H, "buttonHomeExactPage"},
    {"2", Qt::ControlModifier, Qt::Key_O, "addFolders"},
    {"2", Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_O, "addPhotos"},
    {"2", Qt::NoModifier, Qt::Key_Return, "findDuplicateExact"},
    {"2", Qt::NoModifier, Qt::Key_Enter, "findDuplicateExact"},
    {"2", Qt::ControlModifier, Qt::Key_Return, "findDuplicateExact"},
    {"2", Qt::AltModifier, Qt::Key_Left, "backFolderButton"},
    {"2", Qt::AltModifier, Qt::Key_Right, "nextFolderButton"},
    {"2", Qt::ControlModifier, Qt::Key_A, "markAllExactBtn"},
    {"2", Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_A, "unmarkAllExactBtn"},
    {"5", Qt::ControlModifier, Qt::Key_P, "pauseResume"},
    {"5", Qt::ControlModifier, Qt::Key_Period, "stopButton"},
    {"4", Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_H, "buttonHomePage"},
    {"4", Qt::ControlModifier, Qt::Key_1, "allButton"},
    {"4", Qt::ControlModifier, Qt::Key_2, "imageButton"},
    {"4", Qt::ControlModifier, Qt::Key_3, "videoButton"},
    {"4", Qt::ControlModifier, Qt::Key_4, "audioButton"},
    {"4", Qt::ControlModifier, Qt::Key_5, "documentButton"},
    {"4", Qt::ControlModifier, Qt::Key_6, "otherButton"},
    {"4", Qt::ControlModifier, Qt::Key_A, "markAll"},
    {"4", Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_A, "unMarkAll"},
    {"4", Qt::ControlModifier, Qt::Key_Backspace, "finishButton"},
};

class ShortcutsTest : public ShownWindow {
 protected:
    /// Presses the keys in the focused widget.
    void press(const Shortcut& shortcut) {
        QWidget* holder = window.focusWidget() == nullptr ? &window : window.focusWidget();
        QTest::keyClick(holder, shortcut.key, shortcut.modifiers);
    }

    /// Holds the keys down in the focused widget: the keyboard repeats them twice.
    void holdDown(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QWidget* holder = window.focusWidget() == nullptr ? &window : window.focusWidget();
        for (const bool repeated : {false, true, true}) {
            QTest::simulateEvent(holder, true, key, modifiers, QString(), repeated);
        }
        QTest::simulateEvent(holder, false, key, modifiers, QString(), false);
    }
};

TEST_F(ShortcutsTest, PressTheirButtons) {
    for (const Shortcut& shortcut : shortcuts) {
        window.selectTabViewItem(QLatin1String(shortcut.screen));
        const QSignalSpy clicks(control<QAbstractButton>(shortcut.button),
                                &QAbstractButton::clicked);
        press(shortcut);
        EXPECT_EQ(clicks.size(), 1) << shortcut.button;
    }
}

TEST_F(ShortcutsTest, AHeldKeyPressesItsButtonOnce) {
    for (const Shortcut& shortcut : shortcuts) {
        window.selectTabViewItem(QLatin1String(shortcut.screen));
        const QSignalSpy clicks(control<QAbstractButton>(shortcut.button),
                                &QAbstractButton::clicked);
        holdDown(shortcut.key, shortcut.modifiers);
        EXPECT_EQ(clicks.size(), 1) << shortcut.button;
    }
}

TEST_F(ShortcutsTest, AHeldKeyOfTheWindowActsOnce) {
    const QSignalSpy guides(window.helpMenuItem, &QAction::triggered);
    holdDown(Qt::Key_F1, Qt::NoModifier);
    EXPECT_EQ(guides.size(), 1);
    const QSignalSpy putBacks(window.putBackItem, &QAction::triggered);
    holdDown(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(putBacks.size(), 1);
}

TEST_F(ShortcutsTest, AHeldKeyOfADeletionPressesItsButtonOnce) {
    window.selectTabViewItem(QStringLiteral("4"));
    DeletionPanel& panel = *window.deletionPreview;
    window.showOver(&panel, {205, 114});
    const QSignalSpy pauses(panel.pauseResumeBtn, &QAbstractButton::clicked);
    holdDown(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(pauses.size(), 1);
    const QSignalSpy stops(panel.stopDeleteBtn, &QAbstractButton::clicked);
    holdDown(Qt::Key_Period, Qt::ControlModifier);
    EXPECT_EQ(stops.size(), 1);
}

TEST_F(ShortcutsTest, DoNothingToADisabledButton) {
    for (const Shortcut& shortcut : shortcuts) {
        window.selectTabViewItem(QLatin1String(shortcut.screen));
        auto* button = control<QAbstractButton>(shortcut.button);
        button->setEnabled(false);
        const QSignalSpy clicks(button, &QAbstractButton::clicked);
        press(shortcut);
        EXPECT_EQ(clicks.size(), 0) << shortcut.button;
    }
}

TEST_F(ShortcutsTest, BelongToTheirScreen) {
    for (const Shortcut& shortcut : shortcuts) {
        window.selectTabViewItem(QStringLiteral("1"));
        window.buttonHelpManual->setFocus();
        const QSignalSpy clicks(control<QAbstractButton>(shortcut.button),
                                &QAbstractButton::clicked);
        press(shortcut);
        EXPECT_EQ(clicks.size(), 0) << shortcut.button;
    }
}

TEST_F(ShortcutsTest, OfTheWindowAreDisabledByEachPanelOverTheResults) {
    window.selectTabViewItem(QStringLiteral("4"));
    const QSignalSpy putBacks(window.putBackItem, &QAction::triggered);
    const auto panels = window.findChildren<DialogPanel*>();
    EXPECT_GE(panels.size(), 7);
    for (DialogPanel* panel : panels) {
        window.showOver(panel, QPoint(100, 100));
        QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(putBacks.size(), 0) << panel->objectName().toStdString();
        panel->hide();
        window.covers().removeAll();
    }
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(putBacks.size(), 1);
}

TEST_F(ShortcutsTest, WorkWithTheFocusInTheBarOrNowhere) {
    window.selectTabViewItem(QStringLiteral("2"));
    const QSignalSpy clicks(window.locations->addFolders, &QAbstractButton::clicked);

    window.buttonHelpManual->setFocus();
    QTest::keyClick(window.buttonHelpManual, Qt::Key_O, Qt::ControlModifier);
    window.buttonHelpManual->clearFocus();
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);

    EXPECT_EQ(clicks.size(), 2);
}

TEST_F(ShortcutsTest, CtrlAndArrowsChooseASetWhereverTheFocusIs) {
    SomeSets sets;
    sets.addExtension(QStringLiteral("jpg"), Qt::Unchecked);
    for (int set = 0; set < 40; ++set) {
        sets.addSet(QStringLiteral("Set(1)"), Qt::Unchecked);
    }
    ResultTreeView& tree = *window.results->OView2;
    tree.setModel(&sets);
    tree.expandAll();
    window.selectTabViewItem(QStringLiteral("4"));
    window.results->setNotRead(QStringLiteral("1 file could not be read."));
    window.results->textField->setText(QStringLiteral("a\nb\nc"));
    tree.selectSet(sets.setAt(0, 0));
    const QWidget* first = window.focusWidget();
    int visited = 0;
    do {
        QWidget* holder = window.focusWidget();
        const std::string name = holder->objectName().toStdString();
        QTest::keyClick(holder, Qt::Key_Down, Qt::ControlModifier);
        QTest::keyClick(holder, Qt::Key_Down, Qt::ControlModifier);
        EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 2)) << name;
        QTest::keyClick(holder, Qt::Key_Up, Qt::ControlModifier);
        QTest::keyClick(holder, Qt::Key_Up, Qt::ControlModifier);
        EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 0)) << name;
        EXPECT_EQ(window.focusWidget(), holder) << name;
        QTest::keyClick(holder, Qt::Key_Tab);
        ++visited;
    } while (window.focusWidget() != first && visited < 50);
    EXPECT_EQ(visited, 21);
    tree.setModel(nullptr);
}

TEST_F(ShortcutsTest, F1RequestsTheGuideOnEveryScreen) {
    const QSignalSpy asked(window.helpMenuItem, &QAction::triggered);
    for (const char* screen : {"1", "2", "5", "4"}) {
        window.selectTabViewItem(QLatin1String(screen));
        QTest::keyClick(window.focusWidget(), Qt::Key_F1);
    }
    EXPECT_EQ(asked.size(), 4);
}

TEST_F(ShortcutsTest, ReturnActivatesTheFocusedButton) {
    window.selectTabViewItem(QStringLiteral("2"));
    const QSignalSpy scans(window.locations->findDuplicateExact, &QAbstractButton::clicked);
    const QSignalSpy added(window.locations->addFolders, &QAbstractButton::clicked);

    window.locations->addFolders->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.locations->addFolders, Qt::Key_Return);

    EXPECT_EQ(added.size(), 1);
    EXPECT_EQ(scans.size(), 0);
}

}  // namespace

}  // namespace tarvin
