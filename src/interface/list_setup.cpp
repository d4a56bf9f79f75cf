#include "interface/list_setup.h"

#include "controls/plain_text.h"
#include "interface/appearance.h"
#include "interface/list_header.h"

#include <QAction>
#include <QCoreApplication>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <QStringList>
#include <QTableView>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>

namespace tarvin {

namespace {

void disableHorizontalScrolling(QAbstractScrollArea& list) {
    list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QScrollBar* bar = list.horizontalScrollBar();
    // A hidden bar still scrolls: by keys, by the wheel, and to bring a row into view.
    QObject::connect(bar, &QScrollBar::rangeChanged, bar, [bar] { bar->setRange(0, 0); });
    bar->setRange(0, 0);
}

QString shownTip() {
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

/// The tips of the cells of a row, in the order of the columns.
QStringList tipsOf(const QAbstractItemView& list, const QModelIndex& row, const QPoint& position) {
    QStringList tips;
    for (int column = 0; column < row.model()->columnCount(row.parent()); ++column) {
        const QRect cell = list.visualRect(row.siblingAtColumn(column));
        const QString before = shownTip();
        QHelpEvent help(QEvent::ToolTip, cell.center(), position);
        QCoreApplication::sendEvent(list.viewport(), &help);
        // A cell without a tip leaves the one before, which disappears after a while.
        if (const QString tip = shownTip(); tip != before) {
            tips.push_back(tip);
        }
    }
    return tips;
}

/// The lines of several tips, of which some may be rich text.
QString joined(QStringList tips) {
    const bool isRich = std::any_of(tips.cbegin(), tips.cend(),
                                    [](const QString& tip) { return Qt::mightBeRichText(tip); });
    if (!isRich) {
        return tips.join(QLatin1Char('\n'));
    }
    for (QString& tip : tips) {
        if (!Qt::mightBeRichText(tip)) {
            tip = tip.toHtmlEscaped();
        }
    }
    return tips.join(QStringLiteral("<br>"));
}

void toggleTipsOfCurrentRow(QAbstractItemView& list) {
    const QModelIndex row = list.currentIndex();
    const bool wasShown = QToolTip::isVisible();
    QToolTip::hideText();
    if (wasShown || !row.isValid()) {
        return;
    }
    list.scrollTo(row);
    QRect area = list.visualRect(row);
    area.setLeft(0);
    area.setRight(list.viewport()->width() - 1);
    const QPoint position = list.viewport()->mapToGlobal(area.bottomLeft());
    const QStringList tips = tipsOf(list, row, position);
    if (tips.isEmpty()) {
        return;
    }
    QToolTip::showText(position, joined(tips), list.viewport(), area);
    QObject::connect(
        list.selectionModel(), &QItemSelectionModel::currentChanged, &list,
        [] { QToolTip::hideText(); }, Qt::SingleShotConnection);
}

void addTipKey(QAbstractItemView& list) {
    auto* key = new QAction(&list);
    key->setShortcut(Qt::CTRL | Qt::Key_F1);
    key->setShortcutContext(Qt::WidgetShortcut);
    key->setAutoRepeat(false);
    QObject::connect(key, &QAction::triggered, &list, [&list] { toggleTipsOfCurrentRow(list); });
    list.addAction(key);
}

}  // namespace

void setUpList(QAbstractItemView& list) {
    list.setFrameShape(QFrame::NoFrame);
    list.setTabKeyNavigation(false);
    list.setSelectionBehavior(QAbstractItemView::SelectRows);
    list.setSelectionMode(QAbstractItemView::SingleSelection);
    list.setEditTriggers(QAbstractItemView::NoEditTriggers);
    list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    disableHorizontalScrolling(list);
    useNeutralStyle(&list);
    addTipKey(list);
}

void setUpTable(QTableView& table, ListHeader& header, int heightOfRows) {
    table.setHorizontalHeader(&header);
    header.coverScrollBarOf(&table);
    QHeaderView& rows = *table.verticalHeader();
    rows.hide();
    rows.setSectionResizeMode(QHeaderView::Fixed);
    rows.setMinimumSectionSize(1);
    rows.setDefaultSectionSize(heightOfRows);
    table.setShowGrid(false);
    table.setWordWrap(false);
    table.setCornerButtonEnabled(false);
    setUpList(table);
}

void showFullText(const QHelpEvent& event, QWidget* viewport, const QRect& area, const QFont& font,
                  const QModelIndex& cell) {
    const QString text = singleLine(cell.data().toString());
    if (QFontMetrics(font).horizontalAdvance(text) <= area.width()) {
        QToolTip::hideText();
        return;
    }
    const QString tip = singleLine(cell.data(Qt::ToolTipRole).toString());
    QToolTip::showText(event.globalPos(), tip.isEmpty() ? plainToolTip(text) : tip, viewport, area);
}

}  // namespace tarvin
