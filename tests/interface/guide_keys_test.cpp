#include "controls/button_hover_simple.h"
#include "controls/hover_button.h"
#include "controls/tab_button.h"
#include "controls/windows_like_button.h"
#include "interface/exception_list_panel.h"
#include "interface/file_menu.h"
#include "interface/folder_list.h"
#include "interface/list_panel.h"
#include "interface/list_table.h"
#include "interface/progress_screen.h"
#include "interface/result_panels.h"
#include "interface/result_screen.h"
#include "interface/rule_panel.h"
#include "interface/search_field.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"
#include "interface/window_covers.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QFile>
#include <QHeaderView>
#include <QMenu>
#include <QRegularExpression>
#include <QShortcut>
#include <QSignalSpy>
#include <QStringListModel>
#include <QToolTip>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace tarvin {

namespace {

/// The caption of a table of the guide, and a key sequence such as "Ctrl+O" in one of its rows.
using GuideKey = std::pair<std::string, std::string>;

/// The key as QKeySequence writes it.
QString keyOf(const QString& written) {
    static const std::map<QString, QString> others = {
        {QStringLiteral("←"), QStringLiteral("Left")},
        {QStringLiteral("→"), QStringLiteral("Right")},
        {QStringLiteral("↑"), QStringLiteral("Up")},
        {QStringLiteral("↓"), QStringLiteral("Down")},
        {QStringLiteral("Enter"), QStringLiteral("Return")}};
    const auto found = others.find(written);
    return found == others.end() ? written : found->second;
}

/// "Ctrl+O" for the marked-up keys of one sequence.
QString sequenceOf(const QString& markup) {
    static const QRegularExpression key(QStringLiteral("<kbd>([^<]+)</kbd>"));
    QStringList keys;
    for (auto found = key.globalMatch(markup); found.hasNext();) {
        keys.push_back(keyOf(found.next().captured(1)));
    }
    return QKeySequence(keys.join(QLatin1Char('+'))).toString();
}

/// The sequences of the first cell of a row: "A or B", "A and B", or digits with "A to B".
QStringList sequencesOf(const QString& cell) {
    if (cell.contains(QLatin1String(" to "))) {
        const QString first = sequenceOf(cell.section(QLatin1String(" to "), 0, 0));
        const QString last = sequenceOf(cell.section(QLatin1String(" to "), 1));
        QStringList all;
        for (char16_t digit = first.back().unicode(); digit <= last.back().unicode(); ++digit) {
            all.push_back(first.chopped(1) + QChar(digit));
        }
        return all;
    }
    static const QRegularExpression joint(QStringLiteral("\\s(?:and|or)\\s"));
    QStringList all;
    for (const QString& part : cell.split(joint)) {
        all.push_back(sequenceOf(part));
    }
    return all;
}

/// All keys in the tables of the guide.
std::set<GuideKey> keysOfTheGuide() {
    QFile file(QStringLiteral(TARVIN_GUIDE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromUtf8(file.readAll());
    static const QRegularExpression table(
        QStringLiteral("<div class=\"keys\">.*?<caption>(.*?)</caption>(.*?)</table>"),
        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression row(QStringLiteral("<tr><td>(.*?)</td>"),
                                        QRegularExpression::DotMatchesEverythingOption);
    std::set<GuideKey> keys;
    for (auto tables = table.globalMatch(page); tables.hasNext();) {
        const QRegularExpressionMatch found = tables.next();
        for (auto rows = row.globalMatch(found.captured(2)); rows.hasNext();) {
            for (const QString& sequence : sequencesOf(rows.next().captured(1))) {
                keys.emplace(found.captured(1).toStdString(), sequence.toStdString());
            }
        }
    }
    return keys;
}

constexpr const char* everywhere = "Everywhere";
constexpr const char* inLocations = "In the list of locations";
constexpr const char* duringWork = "While files are scanned or moved to the Trash";
constexpr const char* inResult = "In the result";
constexpr const char* inPanel = "In the list of a panel";
constexpr const char* inExceptions = "In the list of exceptions";
constexpr const char* inRule = "In the lists of Mark by Rule";

/// Presses each key of the guide where its table says, and looks for what it does.
class GuideKeysTest : public ShownWindow {
 protected:
    GuideKeysTest() {
        locations_.add(QStringLiteral("/a"), QStringLiteral("folder"), false);
        locations_.add(QStringLiteral("/b"), QStringLiteral("folder"), false);
        window.locations->tableExact->setModel(&locations_);
        tree().setModel(&drawn_.sets);
        tree().expandAll();
        table().setModel(&drawn_.files);
        window.keptWindow->table->setModel(&drawn_.files);
        window.exceptionListWindow->exceptionTable->setModel(&drawn_.files);
        window.markByRuleWindow->preferredList->setModel(&folders_);
        window.markByRuleWindow->protectedList->setModel(&folders_);
    }
    ~GuideKeysTest() override {
        for (QAbstractItemView* view : window.findChildren<QAbstractItemView*>()) {
            view->setModel(nullptr);
        }
    }

    [[nodiscard]] ResultTreeView& tree() const { return *window.results->OView2; }
    [[nodiscard]] ResultTable& table() const { return *window.results->resultTable; }

    /// Shows a screen or a panel and focuses a control.
    void begin(const char* screen, QWidget* holder) {
        window.selectTabViewItem(QLatin1String(screen));
        holder->setFocus();
    }
    void beginIn(DialogPanel& panel, QWidget* holder) {
        window.selectTabViewItem(QStringLiteral("4"));
        window.showOver(&panel, QPoint(100, 100));
        QCoreApplication::sendPostedEvents();
        holder->setFocus();
    }

    void press(const QString& sequence) {
        const QKeyCombination keys = QKeySequence(sequence)[0];
        QWidget* holder = window.focusWidget() == nullptr ? &window : window.focusWidget();
        if (keys.key() == Qt::Key_Menu) {
            // The platform turns this key into a request.
            QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
            QCoreApplication::sendEvent(holder, &asked);
        } else {
            QTest::keyClick(holder, keys.key(), keys.keyboardModifiers());
        }
    }

    /// Adds a key that emits a signal once.
    template <class Sender, class Signal>
    void adds(const char* caption, const QString& sequence, Sender* sender, Signal signal,
              const std::function<void()>& beginning) {
        checks_[{caption, sequence.toStdString()}] = [=, this] {
            beginning();
            const QSignalSpy emitted(sender, signal);
            press(sequence);
            return emitted.size() == 1;
        };
    }
    void addsButton(const char* caption, const QString& sequence, QAbstractButton* button,
                    const char* screen, QWidget* holder) {
        adds(caption, sequence, button, &QAbstractButton::clicked, [=, this] {
            button->setEnabled(true);
            begin(screen, holder);
        });
    }
    void addsItem(const char* caption, const QString& sequence, QAction* item, const char* screen,
                  QWidget* holder) {
        adds(caption, sequence, item, &QAction::triggered, [=, this] { begin(screen, holder); });
    }

    void addThoseOfEverywhere();
    void addThoseOfLocations();
    void addThoseOfWork();
    void addThoseOfResult();
    void addThoseOfPanels();

    std::map<GuideKey, std::function<bool()>> checks_;

 private:
    SomeLocations locations_;
    DrawnResult drawn_{false};
    QStringListModel folders_{{QStringLiteral("/a"), QStringLiteral("/b")}};
};

void GuideKeysTest::addThoseOfEverywhere() {
    QWidget* help = window.buttonHelpManual;
    addsItem(everywhere, QStringLiteral("F1"), window.helpMenuItem, "1", help);
    adds(everywhere, QStringLiteral("F10"), window.moreMenu, &QMenu::aboutToShow,
         [=, this] { begin("1", help); });
    addsItem(everywhere, QStringLiteral("Ctrl+Shift+E"), window.manageExceptionsItem, "1", help);
    addsItem(everywhere, QStringLiteral("Ctrl+Z"), window.putBackItem, "1", help);
    addsItem(everywhere, QStringLiteral("Ctrl+E"), window.exportResultsItem, "4", &table());
    checks_[{everywhere, "Ctrl+Shift+H"}] = [this] {
        const QSignalSpy fromList(window.locations->buttonHomeExactPage, &QAbstractButton::clicked);
        const QSignalSpy fromResult(window.results->buttonHomePage, &QAbstractButton::clicked);
        begin("2", window.locations->tableExact);
        press(QStringLiteral("Ctrl+Shift+H"));
        begin("4", &table());
        press(QStringLiteral("Ctrl+Shift+H"));
        return fromList.size() == 1 && fromResult.size() == 1;
    };
    checks_[{everywhere, "Ctrl+F1"}] = [this] {
        auto* location = drawn_.files.item(1, ResultTable::fileLocation);
        location->setText(QString(80, QLatin1Char('m')));
        begin("4", &table());
        table().selectFile(1);
        press(QStringLiteral("Ctrl+F1"));
        return QToolTip::isVisible() && QToolTip::text() == location->text();
    };
    adds(everywhere, QStringLiteral("Esc"), window.keptWindow->closeButton,
         &QAbstractButton::clicked,
         [this] { beginIn(*window.keptWindow, window.keptWindow->table); });
}

void GuideKeysTest::addThoseOfLocations() {
    LocationScreen& screen = *window.locations;
    LocationTable* list = screen.tableExact;
    const auto onRow = [=, this] {
        begin("2", list);
        list->setCurrentIndex(list->model()->index(1, 0));
    };
    const auto button = [&](const char* sequence, QAbstractButton* pressed) {
        addsButton(inLocations, QLatin1String(sequence), pressed, "2", list);
    };
    checks_[{inLocations, "Space"}] = [=, this] {
        onRow();
        press(QStringLiteral("Space"));
        return locations_.isChecked(1);
    };
    adds(inLocations, QStringLiteral("Return"), list, &LocationTable::rowOpened, onRow);
    for (const char* sequence : {"Menu", "Shift+F10"}) {
        adds(inLocations, QLatin1String(sequence), screen.tableMenu, &QMenu::aboutToShow, onRow);
    }
    button("Alt+Left", screen.backFolderButton);
    button("Alt+Right", screen.nextFolderButton);
    button("Ctrl+O", screen.addFolders);
    button("Ctrl+Shift+O", screen.addPhotos);
    button("Ctrl+A", screen.markAllExactBtn);
    button("Ctrl+Shift+A", screen.unmarkAllExactBtn);
    button("Ctrl+Return", screen.findDuplicateExact);
}

/// On the progress screen and in the panel of a clean-up.
void GuideKeysTest::addThoseOfWork() {
    const auto both = [this](const char* sequence, QAbstractButton* inScan,
                             QAbstractButton* inCleanUp) {
        checks_[{duringWork, sequence}] = [=, this] {
            const QSignalSpy scans(inScan, &QAbstractButton::clicked);
            const QSignalSpy cleanUps(inCleanUp, &QAbstractButton::clicked);
            begin("5", window.progress->pauseResume);
            press(QLatin1String(sequence));
            beginIn(*window.deletionPreview, window.deletionPreview->pauseResumeBtn);
            press(QLatin1String(sequence));
            return scans.size() == 1 && cleanUps.size() == 1;
        };
    };
    DeletionPanel& panel = *window.deletionPreview;
    both("Ctrl+P", window.progress->pauseResume, panel.pauseResumeBtn);
    both("Ctrl+.", window.progress->stopButton, panel.stopDeleteBtn);
}

void GuideKeysTest::addThoseOfResult() {
    ResultScreen& screen = *window.results;
    const auto button = [&](const QString& sequence, QAbstractButton* pressed) {
        addsButton(inResult, sequence, pressed, "4", &table());
    };
    int digit = 1;
    for (TabButton* tab : {screen.allButton, screen.imageButton, screen.videoButton,
                           screen.audioButton, screen.documentButton, screen.otherButton}) {
        button(QStringLiteral("Ctrl+%1").arg(digit), tab);
        ++digit;
    }
    button(QStringLiteral("Ctrl+A"), screen.markAll);
    button(QStringLiteral("Ctrl+Shift+A"), screen.unMarkAll);
    button(QStringLiteral("Ctrl+Backspace"), screen.finishButton);
    addsItem(inResult, QStringLiteral("Ctrl+R"), window.markByRuleItem, "4", &table());
    addsItem(inResult, QStringLiteral("Ctrl+Return"), screen.fileMenu->openFolderItem, "4",
             &table());
    addsItem(inResult, QStringLiteral("Ctrl+C"), screen.fileMenu->copyPathItem, "4", &table());
    addsItem(inResult, QStringLiteral("Ctrl+K"), screen.fileMenu->keepItem, "4", &table());
    const auto onFile = [this] {
        begin("4", &table());
        table().selectFile(1);
    };
    const auto onSet = [this](int set) {
        begin("4", &tree());
        tree().selectSet(drawn_.sets.setAt(0, set));
    };
    checks_[{inResult, "Space"}] = [=, this] {
        const QSignalSpy files(&table(), &ResultTable::tableCheckBoxClicked);
        const QSignalSpy sets(&tree(), &ResultTreeView::checkBoxClicked);
        onFile();
        press(QStringLiteral("Space"));
        onSet(1);
        press(QStringLiteral("Space"));
        return files.size() == 1 && sets.size() == 1;
    };
    adds(inResult, QStringLiteral("Return"), &table(), &ResultTable::doubleClick, onFile);
    for (const char* sequence : {"Menu", "Shift+F10"}) {
        checks_[{inResult, sequence}] = [=, this] {
            const QSignalSpy files(&table(), &ResultTable::menuRequested);
            const QSignalSpy sets(window.results->outlineMenu, &QMenu::aboutToShow);
            onFile();
            press(QLatin1String(sequence));
            onSet(1);
            press(QLatin1String(sequence));
            return files.size() == 1 && sets.size() == 1;
        };
    }
    checks_[{inResult, "Ctrl+Up"}] = [=, this] {
        onSet(1);
        press(QStringLiteral("Ctrl+Up"));
        return tree().selectedSet() == drawn_.sets.setAt(0, 0);
    };
    checks_[{inResult, "Ctrl+Down"}] = [=, this] {
        onSet(1);
        press(QStringLiteral("Ctrl+Down"));
        return tree().selectedSet() == drawn_.sets.setAt(0, 2);
    };
    const auto expands = [=, this](const QString& sequence, bool expanded) {
        begin("4", &tree());
        tree().setCurrentIndex(drawn_.sets.extensionAt(0));
        tree().setExpanded(drawn_.sets.extensionAt(0), !expanded);
        press(sequence);
        return tree().isExpanded(drawn_.sets.extensionAt(0)) == expanded;
    };
    checks_[{inResult, "Left"}] = [=] { return expands(QStringLiteral("Left"), false); };
    checks_[{inResult, "Right"}] = [=] { return expands(QStringLiteral("Right"), true); };
}

void GuideKeysTest::addThoseOfPanels() {
    QTableView* kept = window.keptWindow->table;
    const auto moves = [=, this](const char* sequence, int column, int by) {
        checks_[{inPanel, sequence}] = [=, this] {
            beginIn(*window.keptWindow, kept);
            const int before = kept->columnWidth(column);
            press(QLatin1String(sequence));
            return by > 0 ? kept->columnWidth(column) > before : kept->columnWidth(column) < before;
        };
    };
    moves("Alt+Left", 0, -1);
    moves("Alt+Right", 0, 1);
    moves("Alt+Shift+Left", 1, -1);
    moves("Alt+Shift+Right", 1, 1);

    ExceptionListPanel& exceptions = *window.exceptionListWindow;
    const auto inList = [this] {
        beginIn(*window.exceptionListWindow, window.exceptionListWindow->exceptionTable);
        window.exceptionListWindow->exceptionRemove->setEnabled(true);
    };
    checks_[{inExceptions, "Ctrl+F"}] = [=, this] {
        inList();
        press(QStringLiteral("Ctrl+F"));
        return window.focusWidget() == window.exceptionListWindow->exceptionSearch;
    };
    for (const int column : {0, 1}) {
        const QString sequence = QStringLiteral("Ctrl+%1").arg(column + 1);
        adds(inExceptions, sequence, exceptions.exceptionTable->horizontalHeader(),
             &QHeaderView::sectionClicked, inList);
    }
    checks_[{inExceptions, "Ctrl+A"}] = [=, this] {
        inList();
        press(QStringLiteral("Ctrl+A"));
        const QItemSelectionModel& rows =
            *window.exceptionListWindow->exceptionTable->selectionModel();
        return rows.selectedRows().size() == drawn_.files.rowCount();
    };
    adds(inExceptions, QStringLiteral("Ctrl+C"), &exceptions, &ExceptionListPanel::copyRequested,
         inList);
    adds(inExceptions, QStringLiteral("Del"), exceptions.exceptionRemove, &QAbstractButton::clicked,
         inList);

    FolderList* preferred = window.markByRuleWindow->preferredList;
    const auto inFolders = [=, this] {
        beginIn(*window.markByRuleWindow, preferred);
        preferred->setEnabled(true);
        preferred->setFocus();
    };
    adds(inRule, QStringLiteral("Del"), preferred, &FolderList::removePressed, inFolders);
    adds(inRule, QStringLiteral("Alt+Up"), preferred, &FolderList::movePressed, inFolders);
    adds(inRule, QStringLiteral("Alt+Down"), preferred, &FolderList::movePressed, inFolders);
}

TEST_F(GuideKeysTest, EveryKeyOfTheGuideActs) {
    addThoseOfEverywhere();
    addThoseOfLocations();
    addThoseOfWork();
    addThoseOfResult();
    addThoseOfPanels();
    const std::set<GuideKey> keys = keysOfTheGuide();
    EXPECT_GE(keys.size(), 50U);
    for (const GuideKey& key : keys) {
        const auto check = checks_.find(key);
        if (check == checks_.end()) {
            ADD_FAILURE() << "unknown: " << key.first << ": " << key.second;
            continue;
        }
        EXPECT_TRUE(check->second()) << key.first << ": " << key.second;
        for (DialogPanel* panel : window.findChildren<DialogPanel*>()) {
            panel->hide();
        }
        for (QMenu* menu : window.findChildren<QMenu*>()) {
            menu->close();
        }
        window.covers().removeAll();
    }
    for (const auto& [key, check] : checks_) {
        EXPECT_TRUE(keys.contains(key)) << "not in the guide: " << key.first << ": " << key.second;
    }
}

/// The tables in which the keys of an action may be.
std::set<std::string> captionsFor(const QAction& action) {
    for (const QObject* owner = action.parent(); owner != nullptr; owner = owner->parent()) {
        if (qobject_cast<const LocationScreen*>(owner) != nullptr) {
            return {everywhere, inLocations};
        }
        if (qobject_cast<const ResultScreen*>(owner) != nullptr) {
            return {everywhere, inResult};
        }
        if (qobject_cast<const ProgressScreen*>(owner) != nullptr ||
            qobject_cast<const DeletionPanel*>(owner) != nullptr) {
            return {everywhere, duringWork};
        }
    }
    return {everywhere, inResult};
}

TEST_F(GuideKeysTest, EveryShortcutIsInTheGuide) {
    const std::set<GuideKey> keys = keysOfTheGuide();
    int count = 0;
    for (const QAction* action : window.findChildren<QAction*>()) {
        QStringList tried;
        bool isDescribed = false;
        for (const QKeySequence& sequence : action->shortcuts()) {
            tried.push_back(sequence.toString());
            for (const std::string& caption : captionsFor(*action)) {
                isDescribed =
                    isDescribed || keys.contains({caption, sequence.toString().toStdString()});
            }
        }
        EXPECT_TRUE(tried.isEmpty() || isDescribed) << tried.join(QLatin1Char(' ')).toStdString();
        count += tried.isEmpty() ? 0 : 1;
    }
    EXPECT_GE(count, 30);
    // Shortcuts are actions here, which Shortcuts makes.
    EXPECT_TRUE(window.findChildren<QShortcut*>().isEmpty());
}

}  // namespace

}  // namespace tarvin
