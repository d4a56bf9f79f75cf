#include "controller/file_reasons.h"

#include "controller/path_text.h"
#include "controller/shown_numbers.h"
#include "interface/list_table.h"

#include <algorithm>
#include <utility>

namespace tarvin {

FileReason fileReason(std::string_view path, const QString& reason, FileReason::Kind kind) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos || path == "/") {
        return {textOfPath(path), {}, reason, kind};
    }
    // The root folder keeps its slash.
    return {textOfPath(path.substr(slash + 1)), textOfPath(path.substr(0, slash == 0 ? 1 : slash)),
            reason, kind};
}

void FileReasons::setFiles(QVector<FileReason> files, std::uint64_t all) {
    beginResetModel();
    files_ = std::move(files);
    more_ = all - std::min(all, static_cast<std::uint64_t>(files_.size()));
    endResetModel();
}

QString FileReasons::text() const {
    QString text;
    const auto append = [&text](const QString& one, const QString& two, const QString& three) {
        text += one + QLatin1Char('\t') + two + QLatin1Char('\t') + three + QLatin1Char('\n');
    };
    append(tr("Name"), tr("Location"), tr("Reason"));
    for (int row = 0; row < rowCount(); ++row) {
        append(textOf(row, name), textOf(row, location), textOf(row, reason));
    }
    return text;
}

int FileReasons::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(files_.size()) + (more_ > 0 ? 1 : 0);
}

int FileReasons::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int{columns};
}

QVariant FileReasons::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return textOf(index.row(), index.column());
    }
    const bool isFile = index.row() < files_.size();
    if (role == ListTable::mutedRole) {
        return !isFile;
    }
    return isFile && index.column() == name ? kindData(files_[index.row()].kind, role) : QVariant();
}

QVariant FileReasons::kindData(FileReason::Kind kind, int role) {
    if (kind == FileReason::Kind::any) {
        return {};
    }
    const bool isFolder = kind == FileReason::Kind::folder;
    switch (role) {
        case ListTable::pictureRole:
            return isFolder ? QStringLiteral("folder") : QStringLiteral("ui/file");
        case Qt::AccessibleDescriptionRole:
            return isFolder ? tr("Folder") : tr("File");
        default:
            return {};
    }
}

QVariant FileReasons::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
        case name:
            return tr("Name");
        case location:
            return tr("Location");
        default:
            return tr("Reason");
    }
}

QString FileReasons::textOf(int row, int column) const {
    if (row == files_.size()) {
        return column == name ? tr("and %1 more").arg(ShownNumbers::count(more_)) : QString();
    }
    const FileReason& file = files_[row];
    switch (column) {
        case name:
            return file.name;
        case location:
            return file.folder;
        default:
            return file.reason;
    }
}

}  // namespace tarvin
