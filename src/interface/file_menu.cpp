#include "interface/file_menu.h"

#include "interface/appearance.h"
#include "interface/making.h"

#include <QAction>
#include <QTableView>

namespace tarvin {

FileMenu::FileMenu(QTableView& list, QWidget* parent)
    : QMenu(parent),
      openItem(named(addAction(tr("Open")), "fileOpenItem")),
      openFolderItem(named(addAction(tr("Open Containing Folder")), "fileOpenFolderItem")),
      copyPathItem(named(addAction(tr("Copy Path")), "fileCopyPathItem")),
      keepItem(named(addAction(tr("Keep This One")), "fileKeepItem")),
      markFolderItem(named(addAction(tr("Mark All in This Folder")), "fileMarkFolderItem")),
      exceptionItem(named(addAction(tr("Add to Exceptions…")), "fileExceptionItem")) {
    constexpr int minWidth = 226;
    insertSeparator(keepItem);
    insertSeparator(exceptionItem);
    setMinimumWidth(minWidth);
    styleMenu(this);
    addKey(list, openFolderItem, Qt::CTRL | Qt::Key_Return);
    addKey(list, copyPathItem, Qt::CTRL | Qt::Key_C);
    addKey(list, keepItem, Qt::CTRL | Qt::Key_K);
    // A disabled item would disable its key.
    connect(this, &QMenu::aboutToHide, this, [this] {
        for (QAction* item : actions()) {
            item->setEnabled(true);
        }
    });
}

void FileMenu::addKey(QTableView& list, QAction* item, const QKeySequence& key) {
    item->setShortcut(key);
    item->setShortcutContext(Qt::WidgetShortcut);
    item->setAutoRepeat(false);
    item->setShortcutVisibleInContextMenu(false);
    list.addAction(item);
}

}  // namespace tarvin
