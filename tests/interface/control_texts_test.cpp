#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "interface/about_panel.h"
#include "interface/notice_panel.h"
#include "interface/shown_window.h"
#include "interface/text_block.h"

#include <QAction>
#include <QLabel>
#include <QMenu>

namespace tarvin {

namespace {

struct Text {
    const char* name;
    const char* text;
};

const Text buttons[] = {
    {"buttonHelpManual", "Help"},
    {"mainScanButton", "Scan Drives"},
    {"mainScanButtonFolder", "Scan Folders"},
    {"markAllExactBtn", "Mark All"},
    {"unmarkAllExactBtn", "Unmark All"},
    {"removeFromListExactBtn", "Remove from List"},
    {"addPhotos", "Add Photos"},
    {"addFolders", "Add Folders"},
    {"findDuplicateExact", "Scan"},
    {"pauseResume", "Pause"},
    {"stopButton", "Stop"},
    {"allButton", "All"},
    {"imageButton", "Image"},
    {"videoButton", "Video"},
    {"audioButton", "Audio"},
    {"documentButton", "Documents"},
    {"otherButton", "Other"},
    {"markAll", "Mark All"},
    {"unMarkAll", "Unmark All"},
    {"addEceptionBtn", "Add to Exceptions"},
    {"removeExceptionBtn", "Remove Exceptions"},
    {"finishButton", "Delete"},
    {"scanInforOKBtn", "Review"},
    {"excOKBtn", "Ok"},
    {"excCancelBtn", "Cancel"},
    {"pauseResumeBtn", "Pause"},
    {"stopDeleteBtn", "Stop"},
    {"allCheckOk", "Ok"},
    {"runningAlertOk", "Ok"},
    {"cancelYes", "Yes"},
    {"cancelNo", "No"},
    {"savedOk", "Ok"},
};

const Text labels[] = {
    {"homeScreenTitle", "Tarvin Duplicate File Remover"},
    {"heading", "Find duplicate files"},
    {"explanation",
     "Choose where to look. Identical files are grouped into sets, so you can review them and move "
     "the copies to the Trash."},
    {"cleanHistory", ""},
    {"locationScreenTitle", "Choose Locations"},
    {"hint", "Check the locations to scan. You can also drop folders here."},
    {"progressTypeText", "Searching for duplicate files"},
    {"searchStatus", "Searching for duplicate files..."},
    {"similarProcessing", ""},
    {"progressDetails", ""},
    {"progressState", ""},
    {"textelapse", ""},
    {"resultScreenTitle", "Duplicate Files"},
    {"sortLabel", "Sort by"},
    {"selectedPath", ""},
    {"selectedCount", ""},
    {"selectedSize", ""},
    {"informationHeader", ""},
    {"scanInfoCount", ""},
    {"scanInfoSize", ""},
    {"scanOtherInfo", ""},
    {"exceptionHeader", "Add to Exceptions"},
    {"exceptionTextField", ""},
    {"deletionHeader", "Moving to the Trash"},
    {"deletionStatus", "Deleting files, please wait..."},
    {"deletionComfort", "Marked files go to the Trash. You can put them back from there."},
    {"allCheckText", "All the files of same set cannot be selected"},
    {"runningAlertText", ""},
    {"confirmationText", "Are you sure, you want to stop this process?"},
    {"aboutName", "Tarvin Duplicate File Remover"},
    {"aboutVersion", ""},
    {"aboutSentence",
     "Finds files with identical content, groups them into sets and moves the copies you choose to "
     "the Trash."},
};

const Text actions[] = {
    {"helpMenuItem", "User Guide"},
    {"supportMenuItem", "Contact Support"},
    {"updateMenuItem", "Check for Updates..."},
    {"aboutMenuItem", "About Tarvin Duplicate File Remover"},
    {"markMenuTable", "Mark"},
    {"removeFromListMenu", "Remove from List"},
    {"markAllMenu", "Mark All"},
    {"unMarkAllMenu", "Unmark All"},
};

/// Controls whose accessible name differs from their text.
const Text otherNames[] = {
    {"buttonHomeExactPage", "Home"},
    {"buttonHomePage", "Home"},
    {"backFolderButton", "Back"},
    {"nextFolderButton", "Next"},
    {"tableExact", "Locations"},
    {"similarIndicator", "Scan progress"},
    {"aboutCloseButton", "Close"},
    {"sortPopupBtn", "Sort by"},
    {"sortBtn", "File order"},
    {"asscendingBtn", "Sort direction"},
    {"OView2", "Extensions and sets"},
    {"resultTable", "Files of the set"},
    {"imView", "Preview"},
    {"textField", "File properties"},
    {"deletionIndicator", "Deletion progress"},
};

using ControlTextsTest = ShownWindow;

TEST_F(ControlTextsTest, ButtonsHaveTheirTexts) {
    for (const Text& expected : buttons) {
        EXPECT_EQ(control<QAbstractButton>(expected.name)->text(), QLatin1String(expected.text))
            << expected.name;
    }
}

TEST_F(ControlTextsTest, LabelsHaveTheirTexts) {
    for (const Text& expected : labels) {
        EXPECT_EQ(control<QLabel>(expected.name)->text(), QString::fromUtf8(expected.text))
            << expected.name;
    }
}

TEST_F(ControlTextsTest, LabelsShowTextAsItIs) {
    for (const auto* label : window.findChildren<QLabel*>()) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << qPrintable(label->objectName());
    }
}

TEST_F(ControlTextsTest, MenusHaveTheirTexts) {
    for (const Text& expected : actions) {
        const auto* action = window.findChild<QAction*>(QLatin1String(expected.name));
        ASSERT_NE(action, nullptr) << expected.name;
        EXPECT_EQ(action->text(), QLatin1String(expected.text));
    }
}

TEST_F(ControlTextsTest, MenusAreInTheirOrder) {
    const auto order = [](const QMenu* menu) {
        QStringList names;
        for (const QAction* action : menu->actions()) {
            names.push_back(action->isSeparator() ? QStringLiteral("-") : action->objectName());
        }
        return names.join(QLatin1Char(' '));
    };

    EXPECT_EQ(order(window.helpMenu),
              QStringLiteral("helpMenuItem supportMenuItem updateMenuItem - aboutMenuItem"));
    EXPECT_EQ(order(window.locations->tableMenu),
              QStringLiteral("markMenuTable removeFromListMenu - markAllMenu unMarkAllMenu"));
}

TEST_F(ControlTextsTest, AccessibleNamesAreTheVisibleTitles) {
    for (const Text& expected : buttons) {
        EXPECT_EQ(control(expected.name)->accessibleName(), QLatin1String(expected.text))
            << expected.name;
    }
    for (const Text& expected : otherNames) {
        EXPECT_EQ(control(expected.name)->accessibleName(), QLatin1String(expected.text))
            << expected.name;
    }
}

TEST_F(ControlTextsTest, FocusableControlsHaveAccessibleNames) {
    int seen = 0;
    for (const auto* widget : window.findChildren<QWidget*>()) {
        if (qobject_cast<const QAbstractButton*>(widget) != nullptr ||
            (widget->focusPolicy() & Qt::TabFocus) != 0) {
            EXPECT_FALSE(widget->accessibleName().isEmpty() && widget->parentWidget() != nullptr &&
                         widget->parentWidget()->accessibleName().isEmpty())
                << widget->metaObject()->className() << qPrintable(widget->objectName());
            ++seen;
        }
    }
    EXPECT_GT(seen, 15);
}

TEST_F(ControlTextsTest, AnEmptyListHasAText) {
    EXPECT_EQ(window.locations->tableExact->emptyText(),
              QStringLiteral("No locations yet. Add folders, or drop them here."));
}

TEST_F(ControlTextsTest, TheWindowHasTheProductsNameAndIcon) {
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Tarvin Duplicate File Remover"));
    EXPECT_FALSE(window.windowIcon().pixmap(64).isNull());
}

}  // namespace

}  // namespace tarvin
