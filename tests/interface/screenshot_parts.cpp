#include "interface/screenshot_parts.h"

#include "controls/elided_label.h"
#include "controls/menu_button.h"
#include "controls/scan_animation.h"
#include "controls/spinner.h"
#include "controls/toggle_button.h"
#include "controls/windows_like_button.h"
#include "interface/image_view.h"
#include "interface/location_table.h"
#include "interface/picture_view.h"
#include "interface/result_table.h"
#include "interface/result_tree_view.h"
#include "interface/text_block.h"

#include <QAbstractButton>
#include <QHash>
#include <QLabel>
#include <QVector>
#include <algorithm>
#include <cstdlib>

namespace tarvin {

namespace {

struct Part {
    QString name;
    QRect area;  // in the window
    bool hasText = false;
};

bool isFar(QRgb one, QRgb other, int tolerance) {
    return std::abs(qRed(one) - qRed(other)) > tolerance ||
           std::abs(qGreen(one) - qGreen(other)) > tolerance ||
           std::abs(qBlue(one) - qBlue(other)) > tolerance;
}

template <class... Controls>
bool isAnyOf(const QWidget& widget) {
    return ((qobject_cast<const Controls*>(&widget) != nullptr) || ...);
}

/// Adds an area of a cell, relative to its top left corner, for each row in view.
void addOfRows(const QAbstractItemView& list, int column, const QRect& inCell, const QString& name,
               const QWidget& window, QVector<Part>& parts) {
    if (!list.isVisible() || list.model() == nullptr) {
        return;
    }
    for (QModelIndex row = list.indexAt({2, 2}); row.isValid();
         row = list.indexAt({2, list.visualRect(row).bottom() + 2})) {
        const QModelIndex cell = row.siblingAtColumn(column);
        const QRect rect = list.visualRect(cell);
        const QRect area = inCell.isEmpty() ? rect : inCell.translated(rect.topLeft());
        if (list.viewport()->rect().contains(area)) {
            parts.push_back({name, {list.viewport()->mapTo(&window, area.topLeft()), area.size()}});
        }
    }
}

QVector<Part> partsOf(const QWidget& window) {
    QVector<Part> parts;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const bool isIcon = isAnyOf<PictureView, ImageView, MenuButton, WIndowsLikeButton,
                                    ToggleButton, Spinner, ScanAnimation>(*widget);
        const bool hasText = isAnyOf<QAbstractButton, QLabel, TextBlock, ElidedLabel>(*widget);
        if (widget->isVisible() && (isIcon || hasText)) {
            parts.push_back({widget->objectName(),
                             {widget->mapTo(&window, QPoint(0, 0)), widget->size()},
                             !isIcon});
        }
    }
    for (const auto* table : window.findChildren<LocationTable*>()) {
        addOfRows(*table, LocationTable::mainCell, {16, 8, 40, 40}, QStringLiteral("image of row"),
                  window, parts);
        addOfRows(*table, LocationTable::buttonCell, {33, 19, 18, 18}, QStringLiteral("box of row"),
                  window, parts);
    }
    for (const auto* table : window.findChildren<ResultTable*>()) {
        addOfRows(*table, ResultTable::ButtonCell, {21, 7, 16, 16}, QStringLiteral("box of file"),
                  window, parts);
    }
    for (const auto* tree : window.findChildren<ResultTreeView*>()) {
        addOfRows(*tree, ResultTreeView::check, {}, QStringLiteral("box of set"), window, parts);
    }
    return parts;
}

/// The number of pixels that are not of the most frequent colour.
int countInk(const QImage& image, const QRect& area) {
    QHash<QRgb, int> counts;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            ++counts[image.pixel(x, y)];
        }
    }
    const QList<int> sizes = counts.values();
    return sizes.isEmpty()
               ? 0
               : area.width() * area.height() - *std::max_element(sizes.begin(), sizes.end());
}

bool isChanged(const Part& part, const QRect& area, const QImage& image, const QImage& expected) {
    constexpr int iconTolerance = 16;
    constexpr double iconShare = 0.02;
    constexpr double inkShare = 0.5;
    return part.hasText ? countDifferent(image, expected, area, textTolerance) >
                              inkShare * countInk(expected, area)
                        : countDifferent(image, expected, area, iconTolerance) >
                              iconShare * area.width() * area.height();
}

}  // namespace

int countDifferent(const QImage& image, const QImage& expected, const QRect& area, int tolerance) {
    int different = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            different += isFar(image.pixel(x, y), expected.pixel(x, y), tolerance) ? 1 : 0;
        }
    }
    return different;
}

std::string changedParts(const QWidget& window, const QImage& image, const QImage& expected) {
    std::string changed;
    const int ratio = static_cast<int>(image.devicePixelRatio());
    for (const Part& part : partsOf(window)) {
        const QRect area = QRect(part.area.topLeft() * ratio, part.area.size() * ratio) &
                           image.rect() & expected.rect();
        if (!area.isEmpty() && isChanged(part, area, image, expected)) {
            changed += (changed.empty() ? "" : ", ") + part.name.toStdString();
        }
    }
    return changed;
}

}  // namespace tarvin
