#include "controller/file_list.h"

#include "controller/path_text.h"
#include "controller/result_texts.h"
#include "controls/plain_text.h"

#include <utility>

namespace tarvin {

namespace {

constexpr int listColumns = 4;

QString identifierOf(int column) {
    switch (column) {
        case FileList::nameText:
            return QStringLiteral("nameText");
        case FileList::fileLocation:
            return QStringLiteral("fileLocation");
        case FileList::fileGroup:
            return QStringLiteral("fileGroup");
        default:
            return QStringLiteral("ButtonCell");
    }
}

}  // namespace

FileList::FileList(QObject* parent) : QAbstractTableModel(parent) {}

void FileList::setSet(std::shared_ptr<Set> set, int ordinal) {
    beginResetModel();
    set_ = std::move(set);
    ordinal_ = ordinal;
    rows_ = set_ == nullptr ? 0 : static_cast<int>(set_->files().size());
    heldStates_.clear();
    isFilledAnew_ = true;
    endResetModel();
}

void FileList::markChanged(int row) {
    if (row >= 0 && row < rows_) {
        const QModelIndex box = index(row, ButtonCell);
        Q_EMIT dataChanged(box, box, {Qt::CheckStateRole});
    }
}

void FileList::allMarksChanged() {
    if (rows_ > 0) {
        Q_EMIT dataChanged(index(0, ButtonCell), index(rows_ - 1, ButtonCell),
                           {Qt::CheckStateRole});
    }
}

void FileList::holdMarks(HeldMarks held) {
    // Longer sets are rare; reading all their files would take too long here.
    constexpr int mostRows = 10'000;
    heldStates_.clear();
    for (int row = 0; row < rows_ && rows_ <= mostRows; ++row) {
        const std::shared_ptr<File> file = fileAt(row);
        heldStates_.push_back(file == nullptr ? CheckState::off : file->state());
    }
    held_ = std::move(held);
    isFilledAnew_ = false;
}

void FileList::releaseMarks() {
    held_.reset();
    heldStates_.clear();
}

std::shared_ptr<File> FileList::fileAt(int row) const {
    const auto position = static_cast<std::size_t>(row);
    return row < 0 || row >= rows_ || position >= set_->files().size() ? nullptr
                                                                       : set_->files()[position];
}

int FileList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int FileList::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : listColumns;
}

QVariant FileList::data(const QModelIndex& index, int role) const {
    const std::shared_ptr<File> file = index.isValid() ? fileAt(index.row()) : nullptr;
    if (file == nullptr) {
        return {};
    }
    if (role == Qt::ToolTipRole) {
        return plainToolTip(textOfPath(file->filePath()));
    }
    if (index.column() == ButtonCell) {
        switch (role) {
            case Qt::CheckStateRole:
                return stateOf(index.row()) == CheckState::on ? Qt::Checked : Qt::Unchecked;
            case Qt::AccessibleTextRole:
                return ResultTexts::checkBoxName(textOfPath(file->fileName()));
            default:
                return {};
        }
    }
    return role == Qt::DisplayRole ? textOf(*file, index.column()) : QVariant();
}

QVariant FileList::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= listColumns) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
            return ResultTable::title(static_cast<ResultTable::Column>(section));
        case identifier:
            return identifierOf(section);
        default:
            return {};
    }
}

Qt::ItemFlags FileList::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() && index.column() == ButtonCell ? flags | Qt::ItemIsUserCheckable
                                                           : flags;
}

/// Requires that there is such a row.
CheckState FileList::stateOf(int row) const {
    const auto position = static_cast<std::size_t>(row);
    if (held_) {
        if (position < heldStates_.size()) {
            return heldStates_[position];
        }
        if (isFilledAnew_ && held_->after) {
            return *held_->after;
        }
        held_->wait();
        held_.reset();
    }
    return set_->files()[position]->state();
}

QString FileList::textOf(const File& file, int column) const {
    switch (column) {
        case nameText:
            return textOfPath(file.fileName());
        case fileLocation:
            return textOfPath(file.directory()->path());
        default:
            return QString::number(ordinal_);
    }
}

}  // namespace tarvin
