#include "interface/result_tree_view.h"

#include "controls/look.h"
#include "controls/plain_text.h"
#include "controls/row_painter.h"
#include "interface/list_header.h"
#include "interface/list_setup.h"
#include "interface/tree_row.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>

namespace tarvin {

namespace {

/// Time for events between two parts of an expansion.
constexpr int partMilliseconds = 2;
/// Each costs a little, also without sets.
constexpr int extensionsOfPart = 100;

/// Gives the tree its one row height. The tree paints its rows itself.
class RowHeight final : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&,
                     const QModelIndex&) override {
        return false;
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {0, ResultTreeView::heightOfRows};
    }
};

bool isLeftPress(const QEvent* event) {
    return event != nullptr &&
           (event->type() == QEvent::MouseButtonPress ||
            event->type() == QEvent::MouseButtonDblClick) &&
           static_cast<const QMouseEvent*>(event)->button() == Qt::LeftButton;
}

}  // namespace

ResultTreeView::ResultTreeView(QWidget* parent) : BoxList(check, parent) {
    constexpr int titleIndent = 12;
    auto* listHeader = new ListHeader(heightOfHeader, titleIndent, this);
    listHeader->setOnlyTitle(name);
    setHeader(listHeader);
    // Rows are painted across the view, independent of the columns. By default each column would
    // take 100 pixels, more than the tree has.
    listHeader->setSectionResizeMode(QHeaderView::Stretch);
    listHeader->coverScrollBarOf(this);
    setItemDelegate(new RowHeight(this));
    setUniformRowHeights(true);
    setAnimated(false);
    setRootIsDecorated(false);
    setExpandsOnDoubleClick(false);
    setAllColumnsShowFocus(true);
    setUpList(*this);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setAccessibleName(title());
    // Each interval begins after a part, so that there is one even if the parts take longer.
    parts_.setSingleShot(true);
    parts_.setInterval(partMilliseconds);
    connect(&parts_, &QTimer::timeout, this, [this] { expandPart(extensionsOfPart); });
}

QString ResultTreeView::title() {
    return tr("Extensions and sets");
}

void ResultTreeView::expandAll() {
    if (model() == nullptr) {
        return;
    }
    // One layout for all extensions, instead of one for each.
    scheduleDelayedItemsLayout();
    nextExtension_ = 0;
    expandPart(model()->rowCount());
}

void ResultTreeView::expandPart(int mostExtensions) {
    const int end = std::min(model()->rowCount(), nextExtension_ + mostExtensions);
    for (int sets = 0; nextExtension_ < end && sets < setsOfPart_; ++nextExtension_) {
        const QModelIndex extension = model()->index(nextExtension_, check);
        expand(extension);
        sets += model()->rowCount(extension);
    }
    if (nextExtension_ >= model()->rowCount()) {
        parts_.stop();
    } else {
        parts_.start();
    }
}

void ResultTreeView::reset() {
    parts_.stop();
    BoxList::reset();
}

void ResultTreeView::selectSet(const QModelIndex& set) {
    if (!set.isValid() || !isSet(set)) {
        return;
    }
    const QModelIndex first = set.siblingAtColumn(check);
    selectionModel()->setCurrentIndex(
        first, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(first);
}

void ResultTreeView::clickNeighbour(int step) {
    const QModelIndex set = model() == nullptr ? QModelIndex() : neighbourOf(selectedSet(), step);
    if (set.isValid()) {
        Q_EMIT selectionShouldChange(set);
        selectSet(set);
    }
}

QModelIndex ResultTreeView::neighbourOf(const QModelIndex& set, int step) const {
    const int beforeFirst = step > 0 ? -1 : model()->rowCount();
    int extension = set.isValid() ? set.parent().row() : beforeFirst;
    QModelIndex found = set.isValid() ? set.sibling(set.row() + step, check) : QModelIndex();
    while (!found.isValid()) {
        extension += step;
        const QModelIndex parent = model()->index(extension, check);
        if (!parent.isValid()) {
            break;
        }
        found = model()->index(step > 0 ? 0 : model()->rowCount(parent) - 1, check, parent);
    }
    return found;
}

QModelIndex ResultTreeView::selectedSet() const {
    const QModelIndexList rows =
        selectionModel() == nullptr ? QModelIndexList() : selectionModel()->selectedRows(check);
    return rows.isEmpty() ? QModelIndex() : rows.front();
}

QRect ResultTreeView::rowRect(const QModelIndex& index) const {
    const QRect first = QTreeView::visualRect(index.siblingAtColumn(check));
    return first.isValid() ? QRect(0, first.top(), viewport()->width(), first.height()) : QRect();
}

QRect ResultTreeView::visualRect(const QModelIndex& index) const {
    const QRect row = rowRect(index);
    if (!row.isValid()) {
        return {};
    }
    const TreeRow parts(row, isSet(index));
    return index.column() == check ? parts.boxReach() : parts.name();
}

QModelIndex ResultTreeView::indexAt(const QPoint& point) const {
    const QModelIndex found = QTreeView::indexAt({0, point.y()});
    if (!found.isValid()) {
        return {};
    }
    const TreeRow parts(rowRect(found), isSet(found));
    return found.siblingAtColumn(parts.boxReach().contains(point) ? check : name);
}

/// A binary search over indexInRow(): Qt does not give the number of visible rows.
int ResultTreeView::shownRows() const {
    int end = 1;
    while (indexInRow(end - 1, check).isValid()) {
        end *= 2;
    }
    int begin = end / 2;
    while (begin + 1 < end) {
        const int middle = begin + (end - begin) / 2;
        (indexInRow(middle - 1, check).isValid() ? begin : end) = middle;
    }
    return begin;
}

QModelIndex ResultTreeView::indexInRow(int row, int column) const {
    return row < 0 ? QModelIndex()
                   : QTreeView::indexAt({0, row * heightOfRows - verticalOffset()})
                         .siblingAtColumn(column);
}

int ResultTreeView::rowOf(const QModelIndex& index) const {
    const QRect row = QTreeView::visualRect(index.siblingAtColumn(check));
    return row.isValid() ? (row.top() + verticalOffset()) / heightOfRows : -1;
}

void ResultTreeView::keyboardSearch(const QString& search) {
    if (model() == nullptr || model()->rowCount() == 0) {
        return;
    }
    const QModelIndex current = currentIndex();
    const QModelIndex extension = isSet(current) ? current.parent() : current;
    const int next = (extension.row() + 1) % model()->rowCount();
    const QModelIndexList found = model()->match(model()->index(next, name), Qt::DisplayRole,
                                                 search, 1, Qt::MatchStartsWith | Qt::MatchWrap);
    if (!found.isEmpty()) {
        setCurrentIndex(found.front().siblingAtColumn(check));
    }
}

ResultTreeView::Part ResultTreeView::partAt(const QPoint& point) const {
    const QModelIndex index = indexAt(point);
    if (!index.isValid()) {
        return Part::none;
    }
    if (index.column() == check) {
        return Part::box;
    }
    const TreeRow parts(rowRect(index), isSet(index));
    return parts.branchReach().contains(point) ? Part::branch : Part::text;
}

void ResultTreeView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                 const QVector<int>&) {
    if (topLeft.row() == bottomRight.row() && topLeft.parent() == bottomRight.parent()) {
        updateRow(topLeft);
    } else if (!isAllDue_) {
        isAllDue_ = true;
        viewport()->update();
    }
    announceData(*this, topLeft, bottomRight);
    marks().announce(topLeft, bottomRight);
}

/// Searches only the rows in view: visualRect() of a far or collapsed row walks through the whole
/// tree.
void ResultTreeView::updateRow(const QModelIndex& index) {
    if (isAllDue_) {
        return;
    }
    const QModelIndex first = index.siblingAtColumn(check);
    const int end = viewport()->height() - 1 + heightOfRows;
    for (int y = 0; y < end; y += heightOfRows) {
        const QModelIndex shown = QTreeView::indexAt({0, std::min(y, viewport()->height() - 1)});
        if (shown.siblingAtColumn(check) == first) {
            viewport()->update(rowRect(first));
            return;
        }
    }
}

void ResultTreeView::paintEvent(QPaintEvent* event) {
    isAllDue_ = false;
    BoxList::paintEvent(event);
}

QItemSelectionModel::SelectionFlags ResultTreeView::selectionCommand(const QModelIndex& index,
                                                                     const QEvent* event) const {
    return isLeftPress(event) && isSet(index)
               ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
               : QItemSelectionModel::NoUpdate;
}

void ResultTreeView::selectionChanged(const QItemSelection& selected,
                                      const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    for (const QItemSelection& changed : {selected, deselected}) {
        for (const QItemSelectionRange& range : changed) {
            updateRow(range.topLeft());
        }
    }
}

void ResultTreeView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const QModelIndex first = index.siblingAtColumn(check);
    const QModelIndex label = index.siblingAtColumn(name);
    const bool set = isSet(index);
    QStyleOptionViewItem row = option;
    row.rect = {0, option.rect.top(), viewport()->width(), option.rect.height()};
    row.widget = this;
    row.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(first));
    painter->save();
    paintRow(*painter, row, first, {.selected = look::treeSelected, .line = QColor()});
    TreeRow(row.rect, set)
        .paint(*painter,
               {.name = label.data().toString(),
                .size = label.data(sizeRole).toString(),
                .isBesideScrollBar = verticalScrollBar()->isVisible(),
                .mark = static_cast<Qt::CheckState>(first.data(Qt::CheckStateRole).toInt()),
                .hasBranch = !set && model()->hasChildren(first),
                .isExpanded = isExpanded(first)});
    painter->restore();
}

bool ResultTreeView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QTreeView::viewportEvent(event);
    }
    showToolTip(static_cast<QHelpEvent&>(*event));
    return true;
}

/// A set's details, below its name if that is shortened.
void ResultTreeView::showToolTip(const QHelpEvent& help) {
    const QModelIndex label = indexAt(help.pos()).siblingAtColumn(name);
    if (!label.isValid()) {
        return;
    }
    const QRect area = visualRect(label);
    const QFont font = TreeRow(rowRect(label), isSet(label)).nameFont();
    QString details = label.data(detailsRole).toString();
    if (details.isEmpty()) {
        showFullText(help, viewport(), area, font, label);
        return;
    }
    const QString text = singleLine(label.data().toString());
    if (QFontMetrics(font).horizontalAdvance(text) > area.width()) {
        details.prepend(text + QLatin1Char('\n'));
    }
    QToolTip::showText(help.globalPos(), plainToolTip(details), viewport(), rowRect(label));
}

QModelIndex ResultTreeView::boxAt(const QPoint& point) const {
    return partAt(point) == Part::box ? indexAt(point) : QModelIndex();
}

bool ResultTreeView::pressBranch(const QMouseEvent& event) {
    const QPoint point = event.position().toPoint();
    if (event.button() != Qt::LeftButton || partAt(point) != Part::branch) {
        return false;
    }
    const QModelIndex extension = indexAt(point).siblingAtColumn(check);
    setExpanded(extension, !isExpanded(extension));
    return true;
}

void ResultTreeView::mousePressEvent(QMouseEvent* event) {
    if (pressBox(*event) || pressBranch(*event)) {
        return;
    }
    const QModelIndex index = indexAt(event->position().toPoint());
    if (isLeftPress(event) && index.isValid() && isSet(index)) {
        Q_EMIT selectionShouldChange(index.siblingAtColumn(check));
    }
    BoxList::mousePressEvent(event);
}

void ResultTreeView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (pressBox(*event) || pressBranch(*event)) {
        return;
    }
    const QModelIndex first = indexAt(event->position().toPoint()).siblingAtColumn(check);
    if (event->button() == Qt::LeftButton && first.isValid() && !isSet(first)) {
        setExpanded(first, !isExpanded(first));
        return;
    }
    // A second click on the same set does nothing; on another set it counts as a first one.
    if (first != currentIndex().siblingAtColumn(check)) {
        mousePressEvent(event);
    }
}

void ResultTreeView::keyPressEvent(QKeyEvent* event) {
    while (isExpandingAll()) {
        expandPart(model()->rowCount());
    }
    if (event->key() == Qt::Key_Space) {
        continueFromBox();
    }
    BoxList::keyPressEvent(event);
}

}  // namespace tarvin
