#include "controller/exception_rows.h"

#include "controller/file_reasons.h"
#include "interface/list_table.h"
#include "text/search_key.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace tarvin {

namespace {

/// A name with its first bytes, which decide most comparisons without a look at the name.
struct SortedName {
    std::uint64_t beginning = 0;
    std::uint32_t id = 0;
};

std::uint64_t beginningOf(std::string_view text) {
    std::uint64_t beginning = 0;
    for (std::size_t at = 0; at < sizeof(beginning); ++at) {
        const unsigned char byte = at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
        beginning = beginning << 8U | byte;
    }
    return beginning;
}

}  // namespace

void ExceptionRows::setPaths(std::vector<std::string> paths) {
    beginResetModel();
    paths_ = std::move(paths);
    presences_.assign(paths_.size(), Presence::unknown);
    missing_ = 0;
    needle_.clear();
    makeKeys();
    order_.resize(paths_.size());
    std::iota(order_.begin(), order_.end(), 0U);
    sortNames();
    if (sortedBy_ == folder) {
        groupByFolders();
    }
    if (isReversed_) {
        std::reverse(order_.begin(), order_.end());
    }
    shown_ = order_;
    endResetModel();
}

void ExceptionRows::clear() {
    sortedBy_ = name;
    isReversed_ = false;
    setPaths({});
}

void ExceptionRows::makeKeys() {
    keys_.clear();
    keyOf_.clear();
    keyOf_.reserve(paths_.size());
    // Most files share their folder with others.
    std::unordered_map<std::string_view, std::string> folderKeys;
    for (const std::string& path : paths_) {
        Key key;
        key.begin = keys_.size();
        const std::size_t slash = path.rfind('/');
        const std::size_t nameAt = slash == std::string::npos ? 0 : slash + 1;
        const std::string_view within = std::string_view(path).substr(0, nameAt);
        const auto [known, isNew] = folderKeys.try_emplace(within);
        if (isNew) {
            known->second = searchKey(within);
        }
        keys_ += known->second;
        key.name = keys_.size();
        keys_ += searchKey(std::string_view(path).substr(nameAt));
        key.end = keys_.size();
        keyOf_.push_back(key);
    }
}

std::string_view ExceptionRows::keyOf(Id id) const {
    const Key& key = keyOf_[id];
    return std::string_view(keys_).substr(key.begin, key.end - key.begin);
}

std::string_view ExceptionRows::nameKeyOf(Id id) const {
    const Key& key = keyOf_[id];
    return std::string_view(keys_).substr(key.name, key.end - key.name);
}

std::string_view ExceptionRows::folderKeyOf(Id id) const {
    const Key& key = keyOf_[id];
    return std::string_view(keys_).substr(key.begin, key.name - key.begin);
}

void ExceptionRows::sortNames() {
    std::vector<SortedName> names;
    names.reserve(order_.size());
    for (const Id id : order_) {
        names.push_back({beginningOf(nameKeyOf(id)), id});
    }
    std::sort(names.begin(), names.end(), [this](const SortedName& one, const SortedName& other) {
        if (one.beginning != other.beginning) {
            return one.beginning < other.beginning;
        }
        const int order = nameKeyOf(one.id).compare(nameKeyOf(other.id));
        return order != 0 ? order < 0 : paths_[one.id] < paths_[other.id];
    });
    std::transform(names.begin(), names.end(), order_.begin(),
                   [](const SortedName& each) { return each.id; });
}

/// Sorts by folder and keeps the order within each. There are fewer folders than files.
void ExceptionRows::groupByFolders() {
    std::unordered_map<std::string_view, std::size_t> ranks;
    for (const Id id : order_) {
        ranks.emplace(folderKeyOf(id), 0);
    }
    std::vector<std::string_view> folders;
    folders.reserve(ranks.size());
    for (const auto& each : ranks) {
        folders.push_back(each.first);
    }
    std::sort(folders.begin(), folders.end());
    for (std::size_t rank = 0; rank < folders.size(); ++rank) {
        ranks[folders[rank]] = rank;
    }
    std::vector<std::size_t> rankOf(paths_.size());
    for (const Id id : order_) {
        rankOf[id] = ranks[folderKeyOf(id)];
    }
    std::stable_sort(order_.begin(), order_.end(),
                     [&](Id one, Id other) { return rankOf[one] < rankOf[other]; });
}

void ExceptionRows::sortBy(Column column) {
    beginResetModel();
    const bool turnsRound = column == sortedBy_;
    if (turnsRound || isReversed_) {
        std::reverse(order_.begin(), order_.end());
        isReversed_ = !isReversed_;
    }
    if (!turnsRound) {
        column == folder ? groupByFolders() : sortNames();
    }
    sortedBy_ = column;
    filter();
    endResetModel();
}

void ExceptionRows::search(const QString& text) {
    std::string needle = searchKey(text.toStdString());
    if (needle == needle_) {
        return;
    }
    beginResetModel();
    needle_ = std::move(needle);
    filter();
    endResetModel();
}

/// Looks through the keys in the order in which they are in memory.
void ExceptionRows::filter() {
    if (needle_.empty()) {
        shown_ = order_;
        return;
    }
    std::vector<char> matches(paths_.size());
    for (Id id = 0; id < matches.size(); ++id) {
        matches[id] = keyOf(id).find(needle_) != std::string_view::npos ? 1 : 0;
    }
    shown_.clear();
    std::copy_if(order_.begin(), order_.end(), std::back_inserter(shown_),
                 [&](Id id) { return matches[id] != 0; });
}

void ExceptionRows::setPresences(std::size_t first, std::span<const Presence> presences) {
    std::copy(presences.begin(), presences.end(),
              presences_.begin() + static_cast<std::ptrdiff_t>(first));
    missing_ = static_cast<std::size_t>(std::count_if(order_.begin(), order_.end(), [this](Id id) {
        return presences_[id] == Presence::missing;
    }));
    if (!shown_.empty()) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columns - 1));
    }
}

void ExceptionRows::removeRowsAt(const std::vector<int>& rows) {
    std::vector<bool> isErased(paths_.size());
    for (const int row : rows) {
        isErased[shown_[static_cast<std::size_t>(row)]] = true;
    }
    erase(isErased);
}

void ExceptionRows::removeMissing() {
    std::vector<bool> isErased(paths_.size());
    for (const Id id : order_) {
        isErased[id] = presences_[id] == Presence::missing;
    }
    erase(isErased);
}

void ExceptionRows::erase(const std::vector<bool>& isErased) {
    beginResetModel();
    for (const Id id : order_) {
        missing_ -= isErased[id] && presences_[id] == Presence::missing ? 1U : 0U;
    }
    const auto isGone = [&](Id id) { return isErased[id]; };
    std::erase_if(order_, isGone);
    std::erase_if(shown_, isGone);
    endResetModel();
}

std::vector<std::string> ExceptionRows::missingPaths() const {
    std::vector<std::string> paths;
    for (const Id id : order_) {
        if (presences_[id] == Presence::missing) {
            paths.push_back(paths_[id]);
        }
    }
    return paths;
}

const std::string& ExceptionRows::pathAt(int row) const {
    return paths_[shown_[static_cast<std::size_t>(row)]];
}

int ExceptionRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int ExceptionRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int{columns};
}

bool ExceptionRows::isAway(Id id) const {
    return presences_[id] == Presence::missing || presences_[id] == Presence::notAttached;
}

QString ExceptionRows::markOf(Id id) const {
    switch (presences_[id]) {
        case Presence::missing:
            return tr("Not there any more");
        case Presence::notAttached:
            return tr("Drive not attached");
        default:
            return {};
    }
}

QVariant ExceptionRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const Id id = shown_[static_cast<std::size_t>(index.row())];
    return index.column() == name ? nameData(id, role) : folderData(id, role);
}

QVariant ExceptionRows::nameData(Id id, int role) const {
    if (role == ListTable::mutedRole) {
        return isAway(id);
    }
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) {
        return {};
    }
    const FileReason texts = fileReason(paths_[id], {});
    if (role == Qt::DisplayRole) {
        return texts.name;
    }
    switch (presences_[id]) {
        case Presence::missing:
            return tr("%1, %2, not there any more", "name of a file, its folder")
                .arg(texts.name, texts.folder);
        case Presence::notAttached:
            return tr("%1, %2, drive not attached", "name of a file, its folder")
                .arg(texts.name, texts.folder);
        default:
            return tr("%1, %2", "name of a file, its folder").arg(texts.name, texts.folder);
    }
}

QVariant ExceptionRows::folderData(Id id, int role) const {
    switch (role) {
        case Qt::DisplayRole:
            return fileReason(paths_[id], {}).folder;
        case ListTable::markRole:
            return markOf(id);
        default:
            return {};
    }
}

QVariant ExceptionRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == name ? tr("Name") : tr("Folder");
}

}  // namespace tarvin
