#include "controller/rule_folders.h"

#include "controller/path_text.h"
#include "controller/rule_texts.h"
#include "controls/plain_text.h"
#include "interface/folder_list.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tarvin {

void RuleFolders::setPaths(const std::vector<std::string>& paths) {
    beginResetModel();
    folders_.clear();
    for (const std::string& path : paths) {
        folders_.push_back({path});
    }
    endResetModel();
}

std::vector<std::string> RuleFolders::paths() const {
    std::vector<std::string> paths;
    paths.reserve(folders_.size());
    for (const Folder& folder : folders_) {
        paths.push_back(folder.path);
    }
    return paths;
}

int RuleFolders::add(const std::string& path) {
    const auto listed = std::find_if(folders_.begin(), folders_.end(),
                                     [&](const Folder& folder) { return folder.path == path; });
    const int row = static_cast<int>(listed - folders_.begin());
    if (listed == folders_.end()) {
        beginInsertRows({}, row, row);
        folders_.push_back({path});
        endInsertRows();
    }
    return row;
}

void RuleFolders::remove(int row) {
    if (hasRow(row)) {
        beginRemoveRows({}, row, row);
        folders_.erase(folders_.begin() + row);
        endRemoveRows();
    }
}

int RuleFolders::move(int row, int by) {
    const int to = row + by;
    if (!hasRow(row) || !hasRow(to)) {
        return row;
    }
    // Qt counts the place before the row is taken out.
    beginMoveRows({}, row, row, {}, by > 0 ? to + 1 : to);
    std::swap(folders_[static_cast<std::size_t>(row)], folders_[static_cast<std::size_t>(to)]);
    endMoveRows();
    return to;
}

void RuleFolders::setGone(const std::string& path, bool gone) {
    for (std::size_t row = 0; row < folders_.size(); ++row) {
        if (folders_[row].path == path && folders_[row].gone != gone) {
            folders_[row].gone = gone;
            const QModelIndex changed = index(static_cast<int>(row));
            Q_EMIT dataChanged(changed, changed);
        }
    }
}

int RuleFolders::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(folders_.size());
}

QVariant RuleFolders::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const Folder& folder = folders_[static_cast<std::size_t>(index.row())];
    const QString text = textOfPath(folder.path);
    switch (role) {
        case Qt::DisplayRole:
            return text;
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole: {
            const QString full = folder.gone ? RuleTexts::gone(text) : text;
            return role == Qt::ToolTipRole ? plainToolTip(full) : full;
        }
        case FolderList::goneRole:
            return folder.gone;
        default:
            return {};
    }
}

bool RuleFolders::hasRow(int row) const {
    return row >= 0 && std::cmp_less(row, folders_.size());
}

}  // namespace tarvin
