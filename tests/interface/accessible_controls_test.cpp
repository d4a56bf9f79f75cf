#include "controls/hover_button.h"
#include "controls/notice_strip.h"
#include "interface/dialog_panel.h"
#include "interface/exception_list_panel.h"
#include "interface/list_panel.h"
#include "interface/put_back_panels.h"
#include "interface/result_panels.h"
#include "interface/result_screen.h"
#include "interface/rule_panel.h"
#include "interface/search_field.h"
#include "interface/shown_window.h"
#include "interface/window_covers.h"

#include <QAccessible>

namespace tarvin {

namespace {

/// What assistive technology is told about a control.
struct Told {
    const char* control;
    QAccessible::Role role;
    const char* name;
    const char* states = "";  ///< those of "focused", "disabled" and "checked" that it has
};

/// The roles, names and states of the controls of screens and panels, as they are at first.
class AccessibleControlsTest : public ShownWindow {
 protected:
    static std::string statesOf(const QAccessible::State& state) {
        QStringList states;
        if (state.focused) {
            states.push_back(QStringLiteral("focused"));
        }
        if (state.disabled) {
            states.push_back(QStringLiteral("disabled"));
        }
        if (state.checked) {
            states.push_back(QStringLiteral("checked"));
        }
        return states.join(QLatin1Char(' ')).toStdString();
    }

    void expectTold(const QVector<Told>& controls) {
        for (const Told& told : controls) {
            QWidget* widget = control(told.control);
            if (widget == nullptr) {
                continue;
            }
            const QAccessibleInterface* found = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(found, nullptr) << told.control;
            EXPECT_EQ(found->role(), told.role) << told.control;
            EXPECT_EQ(found->text(QAccessible::Name).toStdString(), told.name) << told.control;
            EXPECT_EQ(statesOf(found->state()), told.states) << told.control;
            EXPECT_FALSE(found->state().invisible) << told.control;
        }
    }

    void show(DialogPanel* panel) {
        window.selectTabViewItem(QStringLiteral("4"));
        window.showOver(panel, QPoint(100, 20));
        QCoreApplication::sendPostedEvents();
    }
};

TEST_F(AccessibleControlsTest, OfTheStartScreen) {
    expectTold({{"mainScanButton", QAccessible::Button, "Scan Drives", "focused"},
                {"mainScanButtonFolder", QAccessible::Button, "Scan Folders"},
                {"buttonMore", QAccessible::ButtonMenu, "More"},
                {"buttonHelpManual", QAccessible::Button, "Help"}});
}

TEST_F(AccessibleControlsTest, OfTheLocations) {
    window.selectTabViewItem(QStringLiteral("2"));
    window.locations->findDuplicateExact->setEnabled(false);
    expectTold({{"buttonHomeExactPage", QAccessible::Button, "Home"},
                {"backFolderButton", QAccessible::Button, "Back"},
                {"nextFolderButton", QAccessible::Button, "Next"},
                {"markAllExactBtn", QAccessible::Button, "Mark All"},
                {"unmarkAllExactBtn", QAccessible::Button, "Unmark All"},
                {"removeFromListExactBtn", QAccessible::Button, "Remove from List"},
                {"tableExact", QAccessible::Table, "Locations", "focused"},
                {"addPhotos", QAccessible::Button, "Add Photos"},
                {"addFolders", QAccessible::Button, "Add Folders"},
                {"findDuplicateExact", QAccessible::Button, "Scan", "disabled"}});
}

TEST_F(AccessibleControlsTest, OfTheProgress) {
    window.selectTabViewItem(QStringLiteral("5"));
    window.buttonHelpManual->setEnabled(false);
    expectTold({{"similarIndicator", QAccessible::ProgressBar, "Scan progress"},
                {"pauseResume", QAccessible::Button, "Pause", "focused"},
                {"stopButton", QAccessible::Button, "Stop"},
                {"buttonMore", QAccessible::ButtonMenu, "More", "disabled"},
                {"buttonHelpManual", QAccessible::Button, "Help", "disabled"}});
}

TEST_F(AccessibleControlsTest, OfTheNoticeOfUnreadableFiles) {
    window.selectTabViewItem(QStringLiteral("4"));
    window.results->setNotRead(QStringLiteral("3 files could not be read."));
    window.results->notReadNotice->setFocus();
    expectTold(
        {{"notReadNotice", QAccessible::Button, "3 files could not be read. Show…", "focused"}});
}

TEST_F(AccessibleControlsTest, OfMarkByRule) {
    show(window.markByRuleWindow);
    expectTold({{"ruleGroup", QAccessible::Grouping, "Keep in each set"},
                {"ruleFirst", QAccessible::RadioButton, "The first found", "focused checked"},
                {"ruleNewest", QAccessible::RadioButton, "The newest"},
                {"ruleOldest", QAccessible::RadioButton, "The oldest"},
                {"ruleShortest", QAccessible::RadioButton, "The shortest path"},
                {"ruleLongest", QAccessible::RadioButton, "The longest path"},
                {"ruleFolder", QAccessible::RadioButton, "The copy in a preferred folder"},
                {"preferredList", QAccessible::List, "Preferred folders"},
                {"preferredAdd", QAccessible::Button, "Add preferred folder"},
                {"preferredRemove", QAccessible::Button, "Remove preferred folder"},
                {"preferredUp", QAccessible::Button, "Move Up"},
                {"preferredDown", QAccessible::Button, "Move Down"},
                {"protectedList", QAccessible::List, "Never mark files in"},
                {"protectedAdd", QAccessible::Button, "Add protected folder"},
                {"protectedRemove", QAccessible::Button, "Remove protected folder"},
                {"ruleCancel", QAccessible::Button, "Cancel"},
                {"ruleMark", QAccessible::Button, "Mark"}});
}

/// The role "client" means that Qt knows nothing about a control.
TEST_F(AccessibleControlsTest, EveryControlWithANameHasARole) {
    int withNames = 0;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->accessibleName().isEmpty()) {
            ++withNames;
            const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
            EXPECT_NE(told->role(), QAccessible::Client) << widget->objectName().toStdString();
        }
    }
    EXPECT_GE(withNames, 60);
}

TEST_F(AccessibleControlsTest, OfTheExceptions) {
    window.exceptionListWindow->setEmpty(false);
    window.exceptionListWindow->exceptionSearch->setText(QStringLiteral("a"));
    show(window.exceptionListWindow);
    expectTold({{"exceptionSearch", QAccessible::EditableText, "Search exceptions", "focused"},
                {"exceptionTable", QAccessible::Table, "Exceptions"},
                {"exceptionRemove", QAccessible::Button, "Remove"},
                {"exceptionRemoveMissing", QAccessible::Button, "Remove All Missing"},
                {"exceptionClose", QAccessible::Button, "Close"}});
}

TEST_F(AccessibleControlsTest, OfTheEmptyExceptions) {
    window.exceptionListWindow->setEmpty(true);
    show(window.exceptionListWindow);
    expectTold({{"exceptionSearch", QAccessible::EditableText, "Search exceptions", "disabled"},
                {"exceptionEmpty", QAccessible::StaticText, "No exceptions"},
                {"exceptionClose", QAccessible::Button, "Close", "focused"}});
}

TEST_F(AccessibleControlsTest, OfPuttingBack) {
    show(window.putBackWindow);
    expectTold({{"putBackTable", QAccessible::Table, "Files of the last clean-up"},
                {"putBackCancel", QAccessible::Button, "Cancel"},
                {"putBackOk", QAccessible::Button, "Put Back", "focused"}});
    window.putBackWindow->hide();
    show(window.putBackProgress);
    expectTold({{"putBackIndicator", QAccessible::ProgressBar, "Put back progress"},
                {"stopPutBackBtn", QAccessible::Button, "Stop", "focused"}});
}

TEST_F(AccessibleControlsTest, OfTheListsOfFiles) {
    show(window.notReadWindow);
    expectTold({{"notReadTable", QAccessible::Table, "Folders and files that could not be read"},
                {"notReadCopy", QAccessible::Button, "Copy List"},
                {"notReadClose", QAccessible::Button, "Close", "focused"}});
    window.notReadWindow->hide();
    show(window.keptWindow);
    expectTold({{"keptTable", QAccessible::Table, "Files left where they are"},
                {"keptCopy", QAccessible::Button, "Copy List"},
                {"keptClose", QAccessible::Button, "Close", "focused"}});
}

TEST_F(AccessibleControlsTest, OfTheReportOfFilesLeft) {
    window.informationWindow->setKeptLine(QStringLiteral("2 files were left where they are."));
    show(window.informationWindow);
    expectTold({{"keptLine", QAccessible::StaticText, "2 files were left where they are."},
                {"keptShow", QAccessible::Button, "Show the files that were left where they are"},
                {"scanInforOKBtn", QAccessible::Button, "Review", "focused"}});
}

}  // namespace

}  // namespace tarvin
