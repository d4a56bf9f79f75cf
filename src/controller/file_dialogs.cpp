#include "controller/file_dialogs.h"

#include "controller/dropped_paths.h"
#include "controller/message_boxes.h"
#include "controller/path_text.h"
#include "scan/category.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QStandardPaths>
#include <QTreeView>
#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>
#include <system_error>
#include <unordered_set>
#include <utility>

namespace tarvin {

namespace {

using Paths = std::vector<std::string>;

QString text(const char* source) {
    return QCoreApplication::translate("tarvin::FileDialogs", source);
}

/// Qt's dialog selects one folder unless the selection mode of its views is changed.
void allowSeveral(const QFileDialog& dialog) {
    for (auto* view : dialog.findChildren<QAbstractItemView*>()) {
        if (qobject_cast<QListView*>(view) != nullptr ||
            qobject_cast<QTreeView*>(view) != nullptr) {
            view->setSelectionMode(QAbstractItemView::ExtendedSelection);
        }
    }
}

/// Case-insensitive patterns: the native dialogs of some desktops are case-sensitive.
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

/// Every folder above one of the paths.
std::unordered_set<std::string> foldersAbove(const Paths& paths) {
    std::unordered_set<std::string> folders;
    for (const std::string& path : paths) {
        for (std::size_t slash = path.rfind('/'); slash != std::string::npos && path != "/";
             slash = slash == 0 ? std::string::npos : path.rfind('/', slash - 1)) {
            folders.insert(path.substr(0, std::max<std::size_t>(slash, 1)));
        }
    }
    return folders;
}

/// Returns the selection of a dialog, without folders above another selected path. While a path is
/// typed, Qt's dialog selects each folder on the way and may keep it; the user can select in one
/// folder only.
Paths chosenIn(const QFileDialog& dialog) {
    Paths paths;
    for (const QUrl& url : dialog.selectedUrls()) {
        if (auto path = localPath(url)) {
            paths.push_back(std::move(*path));
        }
    }
    std::erase_if(paths, [above = foldersAbove(paths)](const std::string& path) {
        return above.contains(path);
    });
    return paths;
}

bool exists(const std::string& path) {
    std::error_code error;
    return std::filesystem::exists(path, error);
}

bool isOfType(const std::string& path, const QStringList& types) {
    return types.contains(textOfPath(pathExtension(path)), Qt::CaseInsensitive);
}

/// Qt's dialog accepts any existing file that is typed. This one refuses files of other types,
/// stays open and says why.
class OpenDialog final : public QFileDialog {
 public:
    OpenDialog(QWidget* window, QStringList types) : QFileDialog(window), types_(std::move(types)) {
        setAttribute(Qt::WA_DeleteOnClose);
    }

    void accept() override {
        const Paths chosen = chosenIn(*this);
        const bool takesAll =
            types_.isEmpty() || std::all_of(chosen.begin(), chosen.end(), [this](const auto& path) {
                std::error_code error;
                return !std::filesystem::is_regular_file(path, error) || isOfType(path, types_);
            });
        if (takesAll) {
            QFileDialog::accept();
            return;
        }
        const char* onlyPhotos = QT_TRANSLATE_NOOP("tarvin::FileDialogs",
                                                   "Only photos of these types can be added: %1.");
        MessageBoxes(this).show(noticeOf(text(onlyPhotos).arg(types_.join(QStringLiteral(", ")))));
    }

 private:
    const QStringList types_;
};

/// Adds a hint to Qt's dialog, which does not list names that are not UTF-8. Native dialogs cannot
/// show one.
void addHint(QFileDialog& dialog, const QString& hint) {
    if (auto* grid = qobject_cast<QGridLayout*>(dialog.layout())) {
        auto* label = new QLabel(hint, &dialog);
        label->setObjectName(QStringLiteral("hint"));
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        grid->addWidget(label, grid->rowCount(), 0, 1, -1);
    }
}

QString notAdded(const OpenPanel& panel) {
    return panel.mayBeDropped
               ? text(QT_TRANSLATE_NOOP("tarvin::FileDialogs",
                                        "Some of the chosen items cannot be added here. Please "
                                        "drop them onto the list."))
               : text(QT_TRANSLATE_NOOP("tarvin::FileDialogs",
                                        "Some of the chosen items cannot be added here."));
}

void setUp(QFileDialog& dialog, const OpenPanel& panel) {
    if (panel.canChooseDirectories) {
        dialog.setWindowTitle(text(QT_TRANSLATE_NOOP("tarvin::FileDialogs", "Add Folders")));
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setOption(QFileDialog::ShowDirsOnly);
        dialog.setFileMode(QFileDialog::Directory);
        allowSeveral(dialog);
        if (panel.mayBeDropped) {
            addHint(dialog, text(QT_TRANSLATE_NOOP(
                                "tarvin::FileDialogs",
                                "Folders not shown here can be dropped onto the list.")));
        }
        return;
    }
    dialog.setWindowTitle(text(QT_TRANSLATE_NOOP("tarvin::FileDialogs", "Add Photos")));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (!panel.allowedFileTypes.isEmpty()) {
        const QString photos = text(QT_TRANSLATE_NOOP("tarvin::FileDialogs", "Photos"));
        dialog.setNameFilter(photos + QStringLiteral(" (") + patternsOf(panel.allowedFileTypes) +
                             QLatin1Char(')'));
    }
    addHint(dialog, text(QT_TRANSLATE_NOOP("tarvin::FileDialogs",
                                           "Photos not shown here can be dropped onto the list.")));
}

QString filterOf(const SavePanel::Type& type) {
    return type.name + QStringLiteral(" (*.") + type.extension + QLatin1Char(')');
}

/// Tells whether the user was asked about the name with its extension. Qt's own dialog adds the
/// extension first and then asks; one of the desktop may ask first.
class SaveDialog final : public QFileDialog {
 public:
    explicit SaveDialog(QWidget* window) : QFileDialog(window) {
        setAttribute(Qt::WA_DeleteOnClose);
    }

    void accept() override {
        asksLast_ = layout() != nullptr;
        QFileDialog::accept();
    }
    [[nodiscard]] bool asksLast() const { return asksLast_; }

    [[nodiscard]] std::size_t type() const {
        return static_cast<std::size_t>(
            std::max<qsizetype>(nameFilters().indexOf(selectedNameFilter()), 0));
    }

 private:
    bool asksLast_ = false;
};

void setUp(SaveDialog& dialog, const SavePanel& panel) {
    dialog.setWindowTitle(panel.title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QStringList filters;
    for (const SavePanel::Type& type : panel.types) {
        filters << filterOf(type);
    }
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(panel.types.front().extension);
    dialog.selectFile(panel.fileName + QLatin1Char('.') + panel.types.front().extension);
    // The name keeps what the user has typed; only the extension follows the type.
    QObject::connect(
        &dialog, &QFileDialog::filterSelected, &dialog, [&dialog, types = panel.types] {
            const QStringList names = dialog.selectedFiles();
            const QString extension = types[dialog.type()].extension;
            dialog.setDefaultSuffix(extension);
            if (!names.isEmpty()) {
                const QFileInfo file(names.front());
                dialog.selectFile(file.completeBaseName() + QLatin1Char('.') + extension);
            }
        });
}

struct Target {
    std::string path;
    std::size_t type = 0;
    bool isNew = false;  ///< the panel has not seen this name
};

/// The file that was chosen in an accepted dialog.
std::optional<Target> targetIn(SaveDialog& dialog, const std::vector<SavePanel::Type>& types) {
    if (!dialog.asksLast()) {
        dialog.setDefaultSuffix({});  // what is chosen is exactly what the desktop's panel returned
    }
    const Paths paths = chosenIn(dialog);
    if (paths.empty()) {
        return std::nullopt;
    }
    Target target{.path = paths.front(), .type = dialog.type()};
    if (target.path.find('.', target.path.rfind('/') + 1) == std::string::npos) {
        target.path += '.' + types[target.type].extension.toStdString();
        target.isNew = true;
        return target;
    }
    for (std::size_t type = 0; type < types.size(); ++type) {
        if (isOfType(target.path, {types[type].extension})) {
            target.type = type;
        }
    }
    return target;
}

constexpr int replaceButton = 0;

Alert replaceQuestion(const std::string& path) {
    const char* question =
        QT_TRANSLATE_NOOP("tarvin::FileDialogs", "%1 already exists. Do you want to replace it?");
    Alert alert = noticeOf(text(question).arg(textOfPath(path.substr(path.rfind('/') + 1))));
    alert.buttons = {text(QT_TRANSLATE_NOOP("tarvin::FileDialogs", "Replace")),
                     text(QT_TRANSLATE_NOOP("tarvin::FileDialogs", "Cancel"))};
    alert.escapeButton = replaceButton + 1;
    return alert;
}

}  // namespace

void FileDialogs::open(const OpenPanel& panel,
                       std::function<void(const std::vector<std::string>& paths)> chosen) {
    auto* dialog = new OpenDialog(window_, panel.allowedFileTypes);
    setUp(*dialog, panel);
    QObject::connect(dialog, &QDialog::accepted, dialog,
                     [dialog, window = window_, panel, chosen = std::move(chosen)] {
                         Paths paths = chosenIn(*dialog);
                         if (std::erase_if(paths, std::not_fn(exists)) > 0) {
                             MessageBoxes(window).show(noticeOf(notAdded(panel)));
                         }
                         const QStringList& types = panel.allowedFileTypes;
                         // A native dialog may offer other types too.
                         std::erase_if(paths, [&](const std::string& path) {
                             return !types.isEmpty() && !isOfType(path, types);
                         });
                         chosen(paths);
                     });
    dialog->open();
}

void FileDialogs::save(const SavePanel& panel,
                       std::function<void(const std::string& path, std::size_t type)> chosen) {
    auto* dialog = new SaveDialog(window_);
    setUp(*dialog, panel);
    QObject::connect(dialog, &QDialog::accepted, dialog,
                     [this, dialog, types = panel.types, chosen = std::move(chosen)] {
                         const std::optional<Target> target = targetIn(*dialog, types);
                         if (!target) {
                             return;
                         }
                         if (!target->isNew || !exists(target->path)) {
                             chosen(target->path, target->type);
                             return;
                         }
                         boxes_.show(replaceQuestion(target->path),
                                     [target = *target, chosen](int button) {
                                         if (button == replaceButton) {
                                             chosen(target.path, target.type);
                                         }
                                     });
                     });
    dialog->open();
}

}  // namespace tarvin
