#include "interface/appearance.h"

#include "controls/look.h"

#include <QApplication>
#include <QMenu>
#include <QPalette>
#include <QScrollBar>
#include <QStyle>
#include <QStyleFactory>
#include <QWidget>

namespace tarvin {

namespace {

/// One for the program, created on first use.
QStyle* neutralStyle() {
    static QStyle* const style = [] {
        QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion"));
        fusion->setParent(qApp);
        return fusion;
    }();
    return style;
}

/// Flat and narrow, without arrows.
QString scrollBarStyle() {
    return QStringLiteral(
               "QScrollBar { background: %1; border: 0; }"
               "QScrollBar:vertical { width: 12px; }"
               "QScrollBar:horizontal { height: 12px; }"
               "QScrollBar::handle { background: %2; margin: 2px; }"
               "QScrollBar::handle:vertical { min-height: 28px; }"
               "QScrollBar::handle:horizontal { min-width: 28px; }"
               "QScrollBar::handle:hover, QScrollBar::handle:pressed { background: %3; }"
               "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
               "QScrollBar::add-page, QScrollBar::sub-page { background: none; }")
        .arg(look::page.name(), look::frame.name(), look::controlLine.name());
}

}  // namespace

QPalette lightPalette() {
    QPalette colors;
    colors.setColor(QPalette::Window, look::page);
    colors.setColor(QPalette::WindowText, look::ink);
    colors.setColor(QPalette::Base, look::surface);
    colors.setColor(QPalette::AlternateBase, look::page);
    colors.setColor(QPalette::Text, look::ink);
    colors.setColor(QPalette::PlaceholderText, look::muted);
    colors.setColor(QPalette::Button, look::header);
    colors.setColor(QPalette::ButtonText, look::ink);
    colors.setColor(QPalette::BrightText, look::surface);
    colors.setColor(QPalette::Light, look::surface);
    colors.setColor(QPalette::Midlight, look::header);
    colors.setColor(QPalette::Mid, look::frame);
    colors.setColor(QPalette::Dark, look::controlLine);
    colors.setColor(QPalette::Shadow, look::focusRing);
    colors.setColor(QPalette::Highlight, look::rowSelected);
    colors.setColor(QPalette::HighlightedText, look::ink);
    colors.setColor(QPalette::Link, look::deepTeal);
    colors.setColor(QPalette::LinkVisited, look::deepTeal);
    colors.setColor(QPalette::ToolTipBase, look::surface);
    colors.setColor(QPalette::ToolTipText, look::ink);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colors.setColor(QPalette::Disabled, role, look::disabledText);
    }
    return colors;
}

void useNeutralStyle(QWidget* widget) {
    widget->setPalette(lightPalette());
    widget->setStyle(neutralStyle());
    for (QWidget* child : widget->findChildren<QWidget*>()) {
        child->setStyle(neutralStyle());
    }
    for (QScrollBar* bar : widget->findChildren<QScrollBar*>()) {
        bar->setStyleSheet(scrollBarStyle());
    }
}

void styleMenu(QMenu* menu) {
    menu->setPalette(lightPalette());
    menu->setFont(look::font(13));
    const auto css = [](const QColor& color) { return color.name(); };
    menu->setStyleSheet(
        QStringLiteral("QMenu { background: %1; border: 1px solid %2; padding: 6px 0; }"
                       "QMenu::item { color: %3; min-height: 30px; padding: 0 16px; }"
                       "QMenu::item:selected { background: %4; }"
                       "QMenu::item:disabled { color: %5; background: %1; }"
                       "QMenu::separator { height: 1px; background: %6; margin: 5px 0; }"
                       "QMenu::indicator { width: 18px; height: 18px; left: 8px; }"
                       "QMenu::indicator:checked { image: url(:/images/ui/check.svg); }")
            .arg(css(look::surface), css(look::noticeFrame), css(look::ink), css(look::rowSelected),
                 css(look::disabledText), css(look::line)));
}

}  // namespace tarvin
