#include "interface/list_table.h"

#include "controls/plain_text.h"
#include "interface/list_cell_delegate.h"
#include "interface/list_header.h"
#include "interface/list_setup.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <algorithm>

namespace tarvin {

ListTable::ListTable(const QVector<Column>& columns, int heightOfRows, QWidget* parent)
    : QTableView(parent), columns_(columns) {
    constexpr int titleIndent = 12;
    auto* header = new ListHeader(heightOfHeader, titleIndent, this);
    header->setTitlesAtLeft(static_cast<int>(columns.size()));
    header->indentAllTitles();
    header->setMinimumSectionSize(minWidth);
    setUpTable(*this, *header, heightOfRows);
    connect(header, &QHeaderView::sectionResized, this, &ListTable::moveEdge);
    setItemDelegate(new ListCellDelegate(*this));
}

void ListTable::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    fitting_ = true;
    for (int at = 0; model != nullptr && at < columns_.size(); ++at) {
        if (columns_[at].width > 0) {
            setColumnWidth(at, columns_[at].width);
        }
    }
    fitting_ = false;
    fitColumns();
}

/// The column without a fixed width takes what the list gains.
void ListTable::fitColumns() {
    if (model() == nullptr) {
        return;
    }
    int filling = 0;
    int left = viewport()->width();
    for (int at = 0; at < columns_.size(); ++at) {
        if (columns_[at].width > 0) {
            left -= columnWidth(at);
        } else {
            filling = at;
        }
    }
    fitting_ = true;
    setColumnWidth(filling, std::max(left, int{minWidth}));
    fitting_ = false;
}

/// The neighbour loses what a column gains, so that the columns always fill the list. The edge of
/// the last column is fixed.
void ListTable::moveEdge(int section, int before, int now) {
    if (fitting_) {
        return;
    }
    fitting_ = true;
    const int neighbour = section + 1;
    if (neighbour == columns_.size()) {
        setColumnWidth(section, before);
    } else {
        const int both = before + columnWidth(neighbour);
        const int width = std::clamp(now, int{minWidth}, std::max(both - minWidth, 1));
        setColumnWidth(section, width);
        setColumnWidth(neighbour, both - width);
    }
    fitting_ = false;
}

void ListTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fitColumns();
}

bool ListTable::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QTableView::viewportEvent(event);
    }
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const QModelIndex index = indexAt(help.pos());
    const auto* delegate = static_cast<const ListCellDelegate*>(itemDelegate());
    const QString text =
        index.isValid() ? delegate->hiddenText(visualRect(index), index) : QString();
    if (text.isEmpty()) {
        QToolTip::hideText();
    } else {
        QToolTip::showText(help.globalPos(), plainToolTip(text), viewport(), visualRect(index));
    }
    return true;
}

/// Returns whether it was a key for that.
bool ListTable::moveEdgeByKey(const QKeyEvent& event) {
    constexpr int step = 16;  // logical pixels
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    const bool narrows = event.key() == Qt::Key_Left;
    const bool isMeant =
        (narrows || event.key() == Qt::Key_Right) && (held & ~Qt::ShiftModifier) == Qt::AltModifier;
    const int section = held.testFlag(Qt::ShiftModifier) ? 1 : 0;
    if (isMeant && section + 1 < columns_.size()) {
        horizontalHeader()->resizeSection(section, columnWidth(section) + (narrows ? -step : step));
    }
    return isMeant;
}

void ListTable::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn || moveEdgeByKey(*event)) {
        return;
    }
    // The panel handles Escape.
    if (event->key() == Qt::Key_Escape) {
        event->ignore();
        return;
    }
    QTableView::keyPressEvent(event);
}

}  // namespace tarvin
