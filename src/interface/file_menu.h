#pragma once

#include <QMenu>

class QAction;
class QTableView;

namespace tarvin {

/// `fileMenu`: what can be done with one file of the list. Its items are triggered by keys of the
/// list, too: Ctrl+Return, Ctrl+C and Ctrl+K. Its owner connects the items and enables them before
/// the menu opens; they are all enabled while it is closed. Main thread only.
class FileMenu final : public QMenu {
    Q_OBJECT

 public:
    /// `list` has the keys and must outlive the menu.
    FileMenu(QTableView& list, QWidget* parent);

    QAction* const openItem;
    QAction* const openFolderItem;
    QAction* const copyPathItem;
    QAction* const keepItem;
    QAction* const markFolderItem;
    QAction* const exceptionItem;

 private:
    static void addKey(QTableView& list, QAction* item, const QKeySequence& key);
};

}  // namespace tarvin
