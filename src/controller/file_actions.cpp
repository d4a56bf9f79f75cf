#include "controller/file_actions.h"

#include "controller/path_text.h"
#include "interface/file_menu.h"
#include "interface/main_window.h"
#include "interface/result_screen.h"
#include "interface/result_table.h"

#include <QAction>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <memory>
#include <utility>

namespace tarvin {

namespace {

constexpr int pollMilliseconds = 5;

bool isGone(Presence presence) {
    return presence == Presence::missing || presence == Presence::notAttached;
}

}  // namespace

FileActions::FileActions(Session& session, Results& results, MainWindow& window,
                         InformationWindow& information, ExceptionsTask& exceptions,
                         Desktop& desktop)
    : session_(session),
      results_(results),
      window_(window),
      information_(information),
      exceptions_(exceptions),
      desktop_(desktop),
      tester_(session.platform) {
    poll_.setInterval(pollMilliseconds);
    connect(&poll_, &QTimer::timeout, this, &FileActions::takeNews);
    connect(window_.results->resultTable, &ResultTable::menuRequested, this,
            &FileActions::popUpMenu);
    connect(window_.results->resultTable, &ResultTable::doubleClick, this,
            &FileActions::doubleClick);
    const FileMenu& menu = *window_.results->fileMenu;
    const auto onTrigger = [this](QAction* item, void (FileActions::*action)()) {
        connect(item, &QAction::triggered, this, action);
    };
    onTrigger(menu.openItem, &FileActions::open);
    onTrigger(menu.openFolderItem, &FileActions::openFolder);
    onTrigger(menu.copyPathItem, &FileActions::copyPath);
    onTrigger(menu.keepItem, &FileActions::keep);
    onTrigger(menu.markFolderItem, &FileActions::markFolder);
    onTrigger(menu.exceptionItem, &FileActions::addToExceptions);
}

void FileActions::popUpMenu(int row, const QPoint& position) {
    const std::shared_ptr<File> file = results_.files().fileAt(row);
    if (file == nullptr) {
        return;
    }
    FileMenu& menu = *window_.results->fileMenu;
    menu.setAccessibleName(
        tr("Actions for %1", "a menu; %1 is a file's name").arg(textOfPath(file->fileName())));
    menu.keepItem->setEnabled(results_.files().rowCount() > 1);
    menu.markFolderItem->setEnabled(results_.canMarkFolderOf(row));
    menu.popup(position);
}

int FileActions::row() const {
    return window_.results->resultTable->selectedRow();
}

void FileActions::withPresentFile(int row, std::function<void(const std::string& path)> act) {
    const std::shared_ptr<File> file = results_.files().fileAt(row);
    if (file == nullptr) {
        return;
    }
    tested_ = file->filePath();
    act_ = std::move(act);
    presence_ = Presence::unknown;
    tester_.start({tested_});
    poll_.start();
}

void FileActions::takeNews() {
    const PresenceTester::News news = tester_.take();
    if (!news.presences.empty()) {
        presence_ = news.presences.front();
    }
    if (!tester_.isOver()) {
        return;
    }
    poll_.stop();
    if (!results_.hasResult() || window_.selectedTabViewItem() != window_.results->identifier()) {
        return;
    }
    // What cannot be tested is left to the other program.
    if (isGone(presence_)) {
        information_.setInformationWindow(fileIsGoneInformation());
    } else {
        act_(tested_);
    }
}

void FileActions::doubleClick(int row) {
    withPresentFile(row, [this](const std::string& path) { desktop_.openPath(path); });
}

void FileActions::open() {
    doubleClick(row());
}

void FileActions::openFolder() {
    withPresentFile(row(), [this](const std::string& path) { desktop_.showInFolder(path); });
}

void FileActions::copyPath() {
    if (const std::shared_ptr<File> file = results_.files().fileAt(row())) {
        QGuiApplication::clipboard()->setText(
            QFile::decodeName(QByteArray::fromStdString(file->filePath())));
    }
}

void FileActions::keep() {
    if (results_.files().rowCount() > 1) {
        results_.keepFile(row());
    }
}

void FileActions::markFolder() {
    results_.markFolderOf(row());
}

void FileActions::addToExceptions() {
    exceptions_.addException(row());
}

}  // namespace tarvin
