#include "interface/screen_title.h"

#include "controls/button_hover_simple.h"
#include "controls/elided_label.h"
#include "controls/look.h"
#include "controls/solid_bars.h"
#include "interface/making.h"

#include <QCoreApplication>

namespace tarvin {

namespace {

// The bar has a fixed height; the More button begins to the right of the title.
constexpr QRect titlePlace{51, 12, 832, 21};
constexpr QRect homePlace{0, 0, 45, 45};

}  // namespace

ElidedLabel* makeScreenTitle(const char* name, const QString& title, ViewTopBar* bar) {
    auto* label = named(new ElidedLabel(title, bar), name);
    label->setFont(look::font(15, QFont::DemiBold));
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setTextColor(look::surface);
    label->setElideMode(Qt::ElideRight);
    label->setGeometry(titlePlace);
    return label;
}

ButtonHoverSimple* makeHomeButton(const char* name, ViewTopBar* bar) {
    auto* button = named(new ButtonHoverSimple(bar), name);
    button->setGeometry(homePlace);
    button->setAccessibleName(QCoreApplication::translate("tarvin::Screen", "Home"));
    button->setFocusRing(FocusRing::Place::inside, look::surface);
    return button;
}

}  // namespace tarvin
