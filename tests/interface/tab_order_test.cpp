#include "controls/hover_button.h"
#include "controls/windows_like_button.h"
#include "interface/dialog_panel.h"
#include "interface/folder_list.h"
#include "interface/home_screen.h"
#include "interface/list_table.h"
#include "interface/progress_screen.h"
#include "interface/result_screen.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"
#include "interface/window_covers.h"
#include "support/on_screen.h"

#include <QAccessible>
#include <QStringListModel>

namespace tarvin {

namespace {

class TabOrderTest : public ShownWindow {
 protected:
    /// The names of the controls that Tab visits in one cycle from the focused one.
    QString visited(Qt::Key key = Qt::Key_Tab) {
        QStringList names;
        const QWidget* first = window.focusWidget();
        if (first == nullptr) {
            return {};
        }
        constexpr int enough = 50;
        do {
            names.push_back(window.focusWidget()->objectName());
            QTest::keyClick(window.focusWidget(), key);
        } while (window.focusWidget() != first && names.size() < enough);
        return names.join(QLatin1Char(' '));
    }

    [[nodiscard]] QString holder() const {
        return window.focusWidget() == nullptr ? QString() : window.focusWidget()->objectName();
    }
};

TEST_F(TabOrderTest, HomeBeginsOnTheDrives) {
    EXPECT_EQ(holder(), QStringLiteral("mainScanButton"));
    EXPECT_EQ(visited(), QStringLiteral("mainScanButton mainScanButtonFolder buttonMore "
                                        "buttonHelpManual"));
}

TEST_F(TabOrderTest, LocationsBeginOnTheListAndFollowReading) {
    window.selectTabViewItem(QStringLiteral("2"));

    EXPECT_EQ(holder(), QStringLiteral("tableExact"));
    EXPECT_EQ(visited(),
              QStringLiteral(
                  "tableExact addPhotos addFolders findDuplicateExact buttonMore buttonHelpManual "
                  "buttonHomeExactPage backFolderButton nextFolderButton "
                  "markAllExactBtn unmarkAllExactBtn removeFromListExactBtn"));
}

TEST_F(TabOrderTest, BacktabGoesTheOtherWay) {
    window.selectTabViewItem(QStringLiteral("2"));

    EXPECT_EQ(visited(Qt::Key_Backtab),
              QStringLiteral("tableExact removeFromListExactBtn unmarkAllExactBtn "
                             "markAllExactBtn nextFolderButton backFolderButton "
                             "buttonHomeExactPage buttonHelpManual buttonMore findDuplicateExact "
                             "addFolders addPhotos"));
}

TEST_F(TabOrderTest, DisabledControlsArePassedOver) {
    window.selectTabViewItem(QStringLiteral("2"));
    window.locations->backFolderButton->setEnabled(false);
    window.locations->nextFolderButton->setEnabled(false);
    window.locations->findDuplicateExact->setEnabled(false);

    EXPECT_EQ(visited(),
              QStringLiteral("tableExact addPhotos addFolders buttonMore buttonHelpManual "
                             "buttonHomeExactPage markAllExactBtn unmarkAllExactBtn "
                             "removeFromListExactBtn"));
}

TEST_F(TabOrderTest, AButtonOfTheLocationsDisabledWithTheFocusPassesItOn) {
    window.selectTabViewItem(QStringLiteral("2"));
    const auto afterDisabling = [this](const char* button) {
        control(button)->setFocus();
        control(button)->setEnabled(false);
        const QString next = holder();
        control(button)->setEnabled(true);
        return next;
    };
    EXPECT_EQ(afterDisabling("backFolderButton"), QStringLiteral("nextFolderButton"));
    EXPECT_EQ(afterDisabling("nextFolderButton"), QStringLiteral("backFolderButton"));
    EXPECT_EQ(afterDisabling("markAllExactBtn"), QStringLiteral("unmarkAllExactBtn"));
    EXPECT_EQ(afterDisabling("unmarkAllExactBtn"), QStringLiteral("markAllExactBtn"));
    EXPECT_EQ(afterDisabling("removeFromListExactBtn"), QStringLiteral("tableExact"));
    EXPECT_EQ(afterDisabling("findDuplicateExact"), QStringLiteral("tableExact"));
    for (const char* counterpart : {"backFolderButton", "markAllExactBtn"}) {
        control(counterpart)->setEnabled(false);
    }
    EXPECT_EQ(afterDisabling("nextFolderButton"), QStringLiteral("tableExact"));
    EXPECT_EQ(afterDisabling("unmarkAllExactBtn"), QStringLiteral("tableExact"));
}

TEST_F(TabOrderTest, TheListShowsNoFocusAfterAClickHasDisabledItsButton) {
    window.selectTabViewItem(QStringLiteral("2"));
    auto& remove = *control<QAbstractButton>("removeFromListExactBtn");
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, geometryOf(&remove).center());
    ASSERT_EQ(window.focusWidget(), &remove);

    remove.setEnabled(false);

    EXPECT_EQ(holder(), QStringLiteral("tableExact"));
    EXPECT_FALSE(window.locations->tableExact->showsFocus());
}

TEST_F(TabOrderTest, ProgressBeginsOnPause) {
    window.buttonHelpManual->setEnabled(false);
    window.selectTabViewItem(QStringLiteral("5"));

    EXPECT_EQ(holder(), QStringLiteral("pauseResume"));
    EXPECT_EQ(visited(), QStringLiteral("pauseResume stopButton"));
}

TEST_F(TabOrderTest, ResultsBeginOnTheListAndFollowReading) {
    window.selectTabViewItem(QStringLiteral("4"));
    control("allButton")->setEnabled(false);

    EXPECT_EQ(holder(), QStringLiteral("resultTable"));
    EXPECT_EQ(
        visited(),
        QStringLiteral("resultTable textField markAll unMarkAll addEceptionBtn "
                       "removeExceptionBtn finishButton buttonMore buttonHelpManual buttonHomePage "
                       "imageButton videoButton audioButton documentButton otherButton "
                       "sortPopupBtn sortBtn asscendingBtn OView2"));
}

TEST_F(TabOrderTest, TheNoticeOfUnreadableFilesIsBetweenDeleteAndMore) {
    window.selectTabViewItem(QStringLiteral("4"));
    window.results->setNotRead(QStringLiteral("3 files could not be read."));
    control("finishButton")->setFocus();

    EXPECT_TRUE(visited().startsWith(
        QStringLiteral("finishButton notReadNotice buttonMore buttonHelpManual ")));
}

TEST_F(TabOrderTest, TheFocusIsShownOnlyForTheKeyboard) {
    auto* drives = control<PaintedButton>("mainScanButton");
    auto* folders = control<PaintedButton>("mainScanButtonFolder");
    EXPECT_FALSE(drives->showsFocusRing());

    QTest::keyClick(drives, Qt::Key_Tab);

    EXPECT_TRUE(folders->showsFocusRing());
    QTest::keyClick(folders, Qt::Key_Backtab);
    EXPECT_TRUE(drives->showsFocusRing());
}

/// The screens and panels with something in their lists.
class VisibleFocusTest : public TabOrderTest {
 protected:
    VisibleFocusTest() {
        locations_.add(QStringLiteral("/a"), QStringLiteral("folder"), false);
        window.locations->tableExact->setModel(&locations_);
        window.results->OView2->setModel(&drawn_.sets);
        window.results->OView2->expandAll();
        window.results->resultTable->setModel(&drawn_.files);
        for (ListTable* list : window.findChildren<ListTable*>()) {
            list->setModel(&drawn_.files);
        }
        for (FolderList* list : window.findChildren<FolderList*>()) {
            list->setModel(&folders_);
        }
    }
    ~VisibleFocusTest() override {
        for (QAbstractItemView* view : window.findChildren<QAbstractItemView*>()) {
            view->setModel(nullptr);
        }
    }

    /// The control and what surrounds it, with its ring.
    [[nodiscard]] QImage look(const QWidget& holder) {
        constexpr int room = 6;
        return onScreen(window).copy(geometryOf(&holder).adjusted(-room, -room, room, room) &
                                     window.rect());
    }

    /// Presses Tab until the first control has the focus again. Each looks different with it.
    void expectEachFocusIsSeen(const std::string& where) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        const QWidget* first = window.focusWidget();
        int count = 0;
        do {
            QWidget* holder = window.focusWidget();
            if (auto* view = qobject_cast<QAbstractItemView*>(holder)) {
                view->setCurrentIndex(view->model()->index(0, 0));
                view->clearSelection();
            }
            const QImage with = look(*holder);
            QTest::keyClick(holder, Qt::Key_Tab);
            const std::string name = holder->objectName().toStdString();
            EXPECT_TRUE(window.focusWidget() == holder || look(*holder) != with)
                << where << ' ' << name;
            EXPECT_TRUE(holder->isVisible()) << where << ' ' << name;
            const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(holder);
            EXPECT_FALSE(told->text(QAccessible::Name).isEmpty()) << where << ' ' << name;
            ++count;
        } while (window.focusWidget() != first && count < 50);
        EXPECT_LT(count, 50) << where;
    }

 private:
    SomeLocations locations_;
    DrawnResult drawn_{false};
    QStringListModel folders_{{QStringLiteral("/a"), QStringLiteral("/b")}};
};

TEST_F(VisibleFocusTest, OnEveryScreen) {
    for (const char* screen : {"1", "2", "5", "4"}) {
        window.selectTabViewItem(QLatin1String(screen));
        window.results->setNotRead(QStringLiteral("3 files could not be read."));
        expectEachFocusIsSeen(screen);
    }
}

TEST_F(VisibleFocusTest, InEveryPanel) {
    window.selectTabViewItem(QStringLiteral("4"));
    for (DialogPanel* panel : window.findChildren<DialogPanel*>()) {
        window.showOver(panel, QPoint(100, 20));
        QCoreApplication::sendPostedEvents();
        for (QAbstractButton* button : panel->findChildren<QAbstractButton*>()) {
            button->setEnabled(true);
        }
        expectEachFocusIsSeen(panel->objectName().toStdString());
        panel->hide();
        window.covers().removeAll();
    }
}

}  // namespace

}  // namespace tarvin
