#include "interface/placement.h"

#include "controls/hover_button.h"

#include <QEvent>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace tarvin {

namespace {

int shareOf(int gain, double share) {
    return static_cast<int>(std::lround(gain * share));
}

/// Rounds both ends from the design, so that neighbours with matching shares stay adjacent.
void grow(int& from, int& length, int gain, Growth growth) {
    const int end = from + length + shareOf(gain, growth.moved + growth.stretched);
    from += shareOf(gain, growth.moved);
    length = end - from;
}

/// Our buttons give up some of the padding of their size hint before they push others.
int widthNeeded(const QWidget* control) {
    constexpr int sparePadding = 10;
    const bool canSparePadding = qobject_cast<const HoverButton*>(control) != nullptr;
    const int needed = control->sizeHint().width() - (canSparePadding ? sparePadding : 0);
    return std::max(needed, control->minimumWidth());
}

int heightNeeded(const QWidget* control, int width) {
    return control->hasHeightForWidth() ? control->heightForWidth(width)
                                        : control->sizeHint().height();
}

bool changesPlaces(QEvent::Type type) {
    switch (type) {
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::LayoutRequest:
        case QEvent::FontChange:
        case QEvent::StyleChange:
            return true;
        default:
            return false;
    }
}

}  // namespace

Placement::Placement(QWidget* parent, QSize design, Column column)
    : QObject(parent), parent_(parent), design_(design), column_(column) {
    parent->installEventFilter(this);
}

void Placement::place(QWidget* control, const Place& place) {
    const auto before = std::find_if(placed_.begin(), placed_.end(), [control](const Placed& item) {
        return item.control == control;
    });
    if (before != placed_.end()) {
        before->place = place;
    } else {
        if (control->parentWidget() != parent_) {
            control->setParent(parent_);
        }
        placed_.push_back({control, place, {}});
    }
    control->setGeometry(grown(place));
}

void Placement::row(std::initializer_list<QWidget*> controls, QWidget* filler) {
    Row row{{}, filler == nullptr ? -1 : indexOf(filler), false};
    for (const QWidget* control : controls) {
        row.items.push_back(indexOf(control));
    }
    row.toTheLeft = placed_[row.items.back()].place.across.moved > 0;
    if (row.toTheLeft) {
        std::reverse(row.items.begin(), row.items.end());
    }
    rows_.push_back(row);
    apply();
}

void Placement::apply() {
    for (Placed& item : placed_) {
        item.now = grown(item.place);
    }
    for (const Row& row : rows_) {
        makeRoom(row);
    }
    for (Placed& item : placed_) {
        makeTaller(item);
        item.control->setGeometry(item.now);
    }
}

bool Placement::eventFilter(QObject* watched, QEvent* event) {
    if (changesPlaces(event->type())) {
        apply();
    }
    return QObject::eventFilter(watched, event);
}

int Placement::indexOf(const QWidget* control) const {
    const auto found = std::find_if(placed_.begin(), placed_.end(), [control](const Placed& item) {
        return item.control == control;
    });
    Q_ASSERT(found != placed_.end());
    return static_cast<int>(found - placed_.begin());
}

QRect Placement::grown(const Place& place) const {
    const int gainAcross = std::max(parent_->width() - design_.width(), 0);
    const int gainDown = std::max(parent_->height() - design_.height(), 0);
    int x = place.design.x();
    int y = place.design.y();
    int width = place.design.width();
    int height = place.design.height();
    if (place.inColumn) {
        const int gainOfColumn = std::min(gainAcross, column_.maxWidth - column_.width);
        grow(x, width, gainOfColumn, place.across);
        x += (gainAcross - gainOfColumn) / 2;
    } else {
        grow(x, width, gainAcross, place.across);
    }
    grow(y, height, gainDown, place.down);
    return {x, y, width, height};
}

void Placement::makeRoom(const Row& row) {
    int shift = 0;  // by the wider ones so far
    for (const int index : row.items) {
        Placed& item = placed_[index];
        const int wider = std::max(widthNeeded(item.control) - item.now.width(), 0);
        if (row.toTheLeft) {
            item.now.adjust(-shift - wider, 0, -shift, 0);
        } else {
            item.now.adjust(shift, 0, shift + wider, 0);
        }
        shift += wider;
    }
    if (row.filler >= 0) {
        QRect& filler = placed_[row.filler].now;
        row.toTheLeft ? filler.setWidth(std::max(filler.width() - shift, 0))
                      : filler.setLeft(std::min(filler.left() + shift, filler.right() + 1));
    }
}

void Placement::makeTaller(Placed& item) {
    if (item.place.fit == Fit::drawn) {
        return;
    }
    const int taller = heightNeeded(item.control, item.now.width()) - item.now.height();
    if (taller <= 0) {
        return;
    }
    const int above = item.place.fit == Fit::tallerAround ? taller / 2 : 0;
    item.now.adjust(0, -above, 0, taller - above);
}

}  // namespace tarvin
