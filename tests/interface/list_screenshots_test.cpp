#include "controller/exception_rows.h"
#include "controls/elided_label.h"
#include "controls/glyph_button.h"
#include "controls/hover_button.h"
#include "controls/menu_button.h"
#include "controls/radio_button.h"
#include "controls/tab_button.h"
#include "interface/exception_list_panel.h"
#include "interface/file_menu.h"
#include "interface/folder_list.h"
#include "interface/home_screen.h"
#include "interface/list_table.h"
#include "interface/picture_view.h"
#include "interface/result_panels.h"
#include "interface/rule_panel.h"
#include "interface/search_field.h"
#include "interface/some_results.h"
#include "interface/text_block.h"
#include "interface/window_screenshots.h"

#include <QLabel>
#include <QMenu>

namespace tarvin {

namespace {

/// The menu of a file, the rules of marking and the exceptions, over the results.
class ListScreenshotTest : public WindowScreenshots {
 protected:
    ListScreenshotTest() {
        QApplication::setCursorFlashTime(0);  // the text cursor of the search stays visible
        screen.OView2->setModel(&result.sets);
        screen.OView2->expandAll();
        screen.OView2->selectSet(result.sets.setAt(0, 0));
        screen.resultTable->setModel(&result.files);
        screen.resultTable->selectRow(2);
        screen.allButton->setEnabled(false);
        window.selectTabViewItem(screen.identifier());
    }
    ~ListScreenshotTest() override {
        QApplication::setCursorFlashTime(usualFlashTime_);
        window.exceptionListWindow->exceptionTable->setModel(nullptr);
        window.markByRuleWindow->preferredList->setModel(nullptr);
        window.markByRuleWindow->protectedList->setModel(nullptr);
        screen.OView2->setModel(nullptr);
        screen.resultTable->setModel(nullptr);
    }

    /// At the size of the design, and enlarged.
    void takeBoth(const QString& name) {
        take(name);
        resizeTo({1400, 900});
        take(name + QStringLiteral("-large"));
    }

    static void fill(QStandardItemModel& model, const QStringList& paths) {
        for (const QString& path : paths) {
            model.appendRow(new QStandardItem(path));
        }
    }

    void showExceptions() {
        window.exceptionListWindow->exceptionTable->setModel(&exceptions);
        window.showOver(window.exceptionListWindow, ExceptionListPanel::designGeometry, halfOfGain,
                        halfOfGain);
    }

    DrawnResult result{true};
    ResultScreen& screen = *window.results;
    QStandardItemModel preferred;
    QStandardItemModel protectedOnes;
    ExceptionRows exceptions;

 private:
    const int usualFlashTime_ = QApplication::cursorFlashTime();
};

TEST_F(ListScreenshotTest, TheMenuOfAFile) {
    FileMenu& menu = *screen.fileMenu;
    menu.popup(window.mapToGlobal(QPoint(404, 204)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu, 20000));
    EXPECT_EQ(menu.width(), 226);
    const QImage image = menu.grab().toImage().convertToFormat(QImage::Format_RGB32);
    saveScreenshot(image, QStringLiteral("25-file-menu"));
    expectAsReference(image, QStringLiteral("25-file-menu"));
    menu.close();
}

TEST_F(ListScreenshotTest, TheQuestionOfOneException) {
    window.exceptionWindow->exceptionTextField->setText(
        QStringLiteral("The file \"IMG_2041.jpg\" will be excluded from all future scans. Press "
                       "\"OK\" to exclude."));
    window.showOver(window.exceptionWindow, {300, 200});
    takeBoth(QStringLiteral("25-file-menu-exception"));
}

TEST_F(ListScreenshotTest, MarkByRule) {
    fill(preferred, {QStringLiteral("/home/anna/Pictures"), QStringLiteral("/home/anna/Documents"),
                     QStringLiteral("/media/anna/Photo archive/2023/Import")});
    fill(protectedOnes, {QStringLiteral("/home/anna/Pictures/Originals"),
                         QStringLiteral("/home/anna/Documents/Contracts"),
                         QStringLiteral("/media/anna/Photo archive")});
    RulePanel& panel = *window.markByRuleWindow;
    panel.preferredList->setModel(&preferred);
    panel.protectedList->setModel(&protectedOnes);
    panel.ruleFolder->setChecked(true);
    panel.preferredList->setCurrentIndex(preferred.index(0, 0));
    panel.preferredUp->setEnabled(false);
    panel.protectedRemove->setEnabled(false);
    panel.ruleOutcome->setText(
        QStringLiteral("1,406 files (157.46 MB) will be marked in 812 sets."));
    panel.ruleBlocked->setText(QStringLiteral("3 sets have no copy that may be marked."));
    window.showOver(&panel, RulePanel::designGeometry);
    takeBoth(QStringLiteral("24-mark-by-rule"));
}

TEST_F(ListScreenshotTest, TheExceptions) {
    std::vector<std::string> paths = {
        "/home/anna/Documents/Templates/cover-letter.odt",
        "/home/anna/Projects/garden-planner/public/assets/favicon.ico",
        "/home/anna/Pictures/2022 Norway/IMG_1987.jpg",
        "/home/anna/Projects/garden-planner/LICENSE.txt",
        "/home/anna/Pictures/2022 Norway/map.png",
        "/media/anna/Photo archive/Papers/passport-scan.pdf",
        "/home/anna/Pictures/2022 Norway/sunset-over-the-fjord.jpg"};
    const std::vector<Presence> presences = {
        Presence::present, Presence::present,     Presence::missing, Presence::present,
        Presence::present, Presence::notAttached, Presence::missing};
    for (int more = 0; more < 31; ++more) {
        paths.push_back("/home/anna/Pictures/z" + std::to_string(more) + ".jpg");
    }
    exceptions.setPaths(paths);
    exceptions.setPresences(0, presences);
    ExceptionListPanel& panel = *window.exceptionListWindow;
    panel.setEmpty(false);
    showExceptions();
    panel.exceptionTable->selectRow(3);
    panel.exceptionCount->setText(QStringLiteral("38 files, 4 not there any more"));
    takeBoth(QStringLiteral("26-exceptions"));
}

TEST_F(ListScreenshotTest, NoExceptions) {
    ExceptionListPanel& panel = *window.exceptionListWindow;
    panel.setEmpty(true);
    panel.setNoneText({});
    panel.exceptionRemove->setEnabled(false);
    panel.exceptionRemoveMissing->setEnabled(false);
    showExceptions();
    takeBoth(QStringLiteral("35-exceptions-empty"));
}

}  // namespace

}  // namespace tarvin
