#include "controller/file_dialogs.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QListView>
#include <QTreeView>
#include <utility>

namespace tarvin {

namespace {

/// Qt's dialog chooses one folder at a time unless its views are told otherwise.
void allowSeveral(const QFileDialog& dialog) {
    for (auto* view : dialog.findChildren<QAbstractItemView*>()) {
        if (qobject_cast<QListView*>(view) != nullptr ||
            qobject_cast<QTreeView*>(view) != nullptr) {
            view->setSelectionMode(QAbstractItemView::ExtendedSelection);
        }
    }
}

/// Patterns that take a type in any spelling: the panels of some desktops mind the case.
QString patternsOf(const QStringList& types) {
    QStringList patterns;
    for (const QString& type : types) {
        QString pattern = QStringLiteral("*.");
        for (const QChar letter : type) {
            if (letter.isLetter()) {
                pattern +=
                    QLatin1Char('[') + letter.toLower() + letter.toUpper() + QLatin1Char(']');
            } else {
                pattern += letter;
            }
        }
        patterns << pattern;
    }
    return patterns.join(QLatin1Char(' '));
}

/// What was chosen, as bytes. Qt's texts do not hold every name; what has become another one on the
/// way is left out, because it names nothing.
std::vector<std::string> chosenPaths(const QStringList& files) {
    std::vector<std::string> paths;
    for (const QString& file : files) {
        if (QFileInfo::exists(file)) {
            paths.push_back(QFile::encodeName(file).toStdString());
        }
    }
    return paths;
}

QString title(const char* text) {
    return QCoreApplication::translate("tarvin::FileDialogs", text);
}

void setUp(QFileDialog& dialog, const OpenPanel& panel) {
    if (panel.canChooseDirectories) {
        dialog.setWindowTitle(title(QT_TRANSLATE_NOOP("tarvin::FileDialogs", "Add Folders")));
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setOption(QFileDialog::ShowDirsOnly);
        dialog.setFileMode(QFileDialog::Directory);
        allowSeveral(dialog);
        return;
    }
    dialog.setWindowTitle(title(QT_TRANSLATE_NOOP("tarvin::FileDialogs", "Add Photos")));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (!panel.allowedFileTypes.isEmpty()) {
        const QString photos = title(QT_TRANSLATE_NOOP("tarvin::FileDialogs", "Photos"));
        dialog.setNameFilter(photos + QStringLiteral(" (") + patternsOf(panel.allowedFileTypes) +
                             QLatin1Char(')'));
    }
}

}  // namespace

void FileDialogs::open(const OpenPanel& panel,
                       std::function<void(const std::vector<std::string>& paths)> chosen) {
    auto* dialog = new QFileDialog(window_);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    setUp(*dialog, panel);
    QObject::connect(
        dialog, &QFileDialog::filesSelected, dialog,
        [chosen = std::move(chosen)](const QStringList& files) { chosen(chosenPaths(files)); });
    dialog->open();
}

}  // namespace tarvin
