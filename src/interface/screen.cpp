#include "interface/screen.h"

#include "controls/button_hover_simple.h"
#include "controls/elided_label.h"
#include "controls/look.h"
#include "controls/solid_bars.h"
#include "interface/making.h"

#include <QAbstractButton>
#include <QAction>
#include <QKeySequence>
#include <utility>

namespace tarvin {

Screen::Screen(QString identifier, ViewTopBar* bar)
    : identifier_(std::move(identifier)), bar_(bar) {
    resize(designSize);
}

void Screen::setBarShown(bool shown) {
    isBarShown_ = shown;
    for (const InBar& item : inBar_) {
        item.control->setVisible(shown && item.isWanted);
    }
}

void Screen::beginWithKeyboard() {
    if (firstControl_ != nullptr) {
        firstControl_->setFocus(Qt::OtherFocusReason);
    }
}

void Screen::showInBar(QWidget* control) {
    inBar_.push_back({control});
    control->hide();
}

void Screen::setWantedInBar(QWidget* control, bool wanted) {
    for (InBar& item : inBar_) {
        if (item.control == control) {
            item.isWanted = wanted;
            control->setVisible(isBarShown_ && wanted);
        }
    }
}

ElidedLabel* Screen::makeTitle(const char* name, const QString& title) {
    auto* label = named(new ElidedLabel(title, bar_), name);
    label->setFont(look::font(15, QFont::DemiBold));
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setTextColor(look::surface);
    label->setElideMode(Qt::ElideRight);
    // The bar has a fixed height; the More button begins to the right of the title.
    label->setGeometry(51, 12, 832, 21);
    showInBar(label);
    return label;
}

ButtonHoverSimple* Screen::makeHomeButton(const char* name) {
    auto* button = named(new ButtonHoverSimple(bar_), name);
    button->setGeometry(0, 0, 45, 45);
    button->setAccessibleName(tr("Home"));
    showInBar(button);
    return button;
}

QAction* Screen::addShortcut(const QList<QKeySequence>& keys, QAbstractButton* button) {
    QAction* shortcut = shortcuts_.add(keys, [button] { button->click(); });
    shortcut->setObjectName(button->objectName() + QStringLiteral("Shortcut"));
    return shortcut;
}

}  // namespace tarvin
