#include "controller/result_tree.h"

#include "controller/path_text.h"
#include "controller/result_texts.h"
#include "controller/shown_numbers.h"
#include "controller/tree_snapshot.h"
#include "controls/plain_text.h"
#include "interface/result_table.h"

#include <utility>

namespace tarvin {

namespace {

constexpr int treeColumns = 2;

// The internal ID of an index: 0 for the row of an extension, the position of its extension plus 1
// for the row of a set.
constexpr quintptr belowNothing = 0;

quintptr below(int extension) {
    return static_cast<quintptr>(extension) + 1;
}

Qt::CheckState shown(CheckState state) {
    switch (state) {
        case CheckState::on:
            return Qt::Checked;
        case CheckState::mixed:
            return Qt::PartiallyChecked;
        case CheckState::off:
            break;
    }
    return Qt::Unchecked;
}

const QVector<int>& changedRoles() {
    static const QVector<int> roles{Qt::DisplayRole, Qt::CheckStateRole, Qt::AccessibleTextRole,
                                    Qt::AccessibleDescriptionRole};
    return roles;
}

}  // namespace

ResultTree::ResultTree(QObject* parent) : QAbstractItemModel(parent) {}

ResultTree::~ResultTree() = default;

void ResultTree::setModal(std::shared_ptr<Modal> modal) {
    beginResetModel();
    snapshot_.reset();
    modal_ = std::move(modal);
    shown_.fill({});
    isFilledAnew_ = true;
    endResetModel();
}

void ResultTree::marksChanged(int extension, int set) {
    if (setIn(extension, set) == nullptr) {
        return;
    }
    lastShown(extension, set) = {};
    lastShown(extension, -1) = {};
    const QModelIndex first = indexOfSet(extension, set);
    Q_EMIT dataChanged(first, first.siblingAtColumn(name), changedRoles());
    reportExtension(extension);
}

void ResultTree::extensionChanged(int extension) {
    if (extensionIn(extension) != nullptr) {
        forgetShown(extension);
        reportExtension(extension);
        reportSetsOf(extension);
    }
}

void ResultTree::allMarksChanged() {
    shown_.fill({});
    const int count = rowCount();
    if (count == 0) {
        return;
    }
    Q_EMIT dataChanged(indexOfExtension(0), index(count - 1, name), changedRoles());
    for (int extension = 0; extension < count; ++extension) {
        reportSetsOf(extension);
    }
}

void ResultTree::showSnapshot(std::unique_ptr<const TreeSnapshot> snapshot) {
    if (modal_ != nullptr) {
        snapshot_ = std::move(snapshot);
    }
}

void ResultTree::endSnapshot() {
    snapshot_.reset();
    allMarksChanged();
}

void ResultTree::holdMarks(HeldMarks held) {
    held_ = std::move(held);
    isFilledAnew_ = false;
}

std::shared_ptr<Extensions> ResultTree::extensionAt(const QModelIndex& index) const {
    const int extension = extensionRow(index);
    return extensionIn(extension) == nullptr
               ? nullptr
               : modal_->extensions()[static_cast<std::size_t>(extension)];
}

std::shared_ptr<Set> ResultTree::setAt(const QModelIndex& index) const {
    const int set = setRow(index);
    return setIn(extensionRow(index), set) == nullptr
               ? nullptr
               : extensionAt(index)->sets()[static_cast<std::size_t>(set)];
}

int ResultTree::extensionRow(const QModelIndex& index) {
    if (!index.isValid() || index.internalId() == belowNothing) {
        return index.row();
    }
    return static_cast<int>(index.internalId() - 1);
}

int ResultTree::setRow(const QModelIndex& index) {
    return index.isValid() && index.internalId() != belowNothing ? index.row() : -1;
}

QModelIndex ResultTree::indexOfExtension(int extension) const {
    return index(extension, check);
}

QModelIndex ResultTree::indexOfSet(int extension, int set) const {
    return setIn(extension, set) == nullptr ? QModelIndex()
                                            : createIndex(set, check, below(extension));
}

QModelIndex ResultTree::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) {
        return {};
    }
    return createIndex(row, column, parent.isValid() ? below(parent.row()) : belowNothing);
}

QModelIndex ResultTree::parent(const QModelIndex& index) const {
    return setRow(index) < 0 ? QModelIndex()
                             : createIndex(extensionRow(index), check, belowNothing);
}

int ResultTree::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid()) {
        return modal_ == nullptr ? 0 : static_cast<int>(modal_->extensionCount());
    }
    if (parent.column() != check || setRow(parent) >= 0) {
        return 0;
    }
    const Extensions* const extension = extensionIn(parent.row());
    return extension == nullptr ? 0 : static_cast<int>(extension->sets().size());
}

int ResultTree::columnCount(const QModelIndex& /*parent*/) const {
    return treeColumns;
}

QVariant ResultTree::data(const QModelIndex& index, int role) const {
    const bool isBox = index.column() != name;
    if (!isInTree(index)) {
        return isBox && role == Qt::CheckStateRole
                   ? QVariant(selectAll_ ? Qt::Checked : Qt::Unchecked)
                   : QVariant();
    }
    switch (role) {
        case Qt::CheckStateRole:
            return isBox ? QVariant(shown(stateOf(index))) : QVariant();
        case Qt::DisplayRole:
            return isBox ? QVariant() : textOf(index);
        case Qt::AccessibleTextRole:
            return isBox ? ResultTexts::checkBoxName(textOf(index)) : textOf(index);
        case Qt::AccessibleDescriptionRole:
            return descriptionOf(index);
        case ResultTreeView::sizeRole:
            return isBox ? QVariant() : sizeOf(index);
        case ResultTreeView::detailsRole:
            return isBox ? QVariant() : detailsOf(index).join(QLatin1Char('\n'));
        case Qt::ToolTipRole:
            return plainToolTip(textOf(index));
        default:
            return {};
    }
}

QVariant ResultTree::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= treeColumns) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
            return section == check ? ResultTable::title(ResultTable::ButtonCell)
                                    : ResultTreeView::title();
        case identifier:
            return section == check ? QStringLiteral("check") : QStringLiteral("name");
        default:
            return {};
    }
}

Qt::ItemFlags ResultTree::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    Qt::ItemFlags flags = Qt::ItemIsEnabled;
    flags.setFlag(Qt::ItemIsUserCheckable, index.column() == check);
    if (setRow(index) >= 0) {
        flags |= Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    }
    return flags;
}

const Extensions* ResultTree::extensionIn(int extension) const {
    const auto position = static_cast<std::size_t>(extension);
    return modal_ == nullptr || extension < 0 || position >= modal_->extensionCount()
               ? nullptr
               : modal_->extensions()[position].get();
}

const Set* ResultTree::setIn(int extension, int set) const {
    const Extensions* const above = extensionIn(extension);
    const auto position = static_cast<std::size_t>(set);
    return above == nullptr || set < 0 || position >= above->sets().size()
               ? nullptr
               : above->sets()[position].get();
}

bool ResultTree::isInTree(const QModelIndex& index) const {
    const int set = setRow(index);
    return set < 0 ? extensionIn(extensionRow(index)) != nullptr
                   : setIn(extensionRow(index), set) != nullptr;
}

CheckState ResultTree::stateOf(const QModelIndex& index) const {
    const int extension = extensionRow(index);
    const int set = setRow(index);
    if (snapshot_ != nullptr) {
        return set < 0 ? snapshot_->stateOfExtension(extension)
                       : snapshot_->stateOfSet(extension, set);
    }
    ShownRow& shown = lastShown(extension, set);
    if (held_) {
        if (shown.extension == extension && shown.set == set) {
            return shown.state;
        }
        if (isFilledAnew_ && held_->after) {
            return *held_->after;
        }
        held_->wait();
        held_.reset();
    }
    shown = {extension, set, currentState(extension, set)};
    return shown.state;
}

CheckState ResultTree::currentState(int extension, int set) const {
    return set < 0 ? extensionIn(extension)->extensionState() : setIn(extension, set)->setsState();
}

ResultTree::ShownRow& ResultTree::lastShown(int extension, int set) const {
    constexpr std::size_t stride =
        31;  // extensions and their first sets are on the screen together
    const auto row =
        static_cast<std::size_t>(extension) * stride + static_cast<std::size_t>(set + 1);
    return shown_[row % shown_.size()];
}

void ResultTree::forgetShown(int extension) {
    for (ShownRow& shown : shown_) {
        if (shown.extension == extension) {
            shown = {};
        }
    }
}

QString ResultTree::textOf(const QModelIndex& index) const {
    const int extension = extensionRow(index);
    const int set = setRow(index);
    if (set < 0) {
        return textOfPath(extensionIn(extension)->name());
    }
    return QString::fromStdString(snapshot_ != nullptr ? snapshot_->nameOfSet(extension, set)
                                                       : setIn(extension, set)->nameOfSet());
}

QString ResultTree::sizeOf(const QModelIndex& index) const {
    const int extension = extensionRow(index);
    const int set = setRow(index);
    if (set < 0) {
        return {};
    }
    const std::size_t files = snapshot_ != nullptr ? snapshot_->filesOfSet(extension, set)
                                                   : setIn(extension, set)->files().size();
    if (files < 2) {
        return {};
    }
    return ShownNumbers::shortSize(snapshot_ != nullptr ? snapshot_->sizeOfCopies(extension, set)
                                                        : setIn(extension, set)->sizeOfCopies());
}

/// Nothing while another thread changes the files.
QStringList ResultTree::detailsOf(const QModelIndex& index) const {
    constexpr int maxCharacters = 60;
    const Set* const set =
        snapshot_ != nullptr ? nullptr : setIn(extensionRow(index), setRow(index));
    if (set == nullptr || set->files().empty()) {
        return {};
    }
    const File& first = *set->files().front();
    QStringList lines{shortTextOfName(first.fileName(), maxCharacters),
                      ResultTexts::filesOfSet(set->files().size(), first.fileSize())};
    if (set->files().size() > 1) {
        lines.push_back(ResultTexts::canBeRegained(set->sizeOfCopies()));
    }
    return lines;
}

QString ResultTree::descriptionOf(const QModelIndex& index) const {
    if (index.column() == name) {
        return detailsOf(index).join(QStringLiteral(", "));
    }
    // Qt reports only on and off to screen readers.
    return stateOf(index) == CheckState::mixed ? ResultTexts::partlyMarked() : QString();
}

void ResultTree::reportExtension(int extension) {
    const QModelIndex first = indexOfExtension(extension);
    Q_EMIT dataChanged(first, first.siblingAtColumn(name), changedRoles());
}

/// Kept cheap: there may be as many extensions as sets.
void ResultTree::reportSetsOf(int extension) {
    const Extensions* const above = extensionIn(extension);
    if (above == nullptr || above->sets().empty()) {
        return;
    }
    const int last = static_cast<int>(above->sets().size()) - 1;
    Q_EMIT dataChanged(createIndex(0, check, below(extension)),
                       createIndex(last, name, below(extension)), changedRoles());
}

}  // namespace tarvin
