#include "interface/making.h"

#include "controls/hover_button.h"

namespace tarvin {

QLabel* makeLabel(const QString& text, const QFont& font, const QColor& color,
                  Qt::Alignment alignment) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setFont(font);
    label->setAlignment(alignment | Qt::AlignVCenter);
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, color);
    label->setPalette(colors);
    return label;
}

HoverButton* makeFilledButton(const char* name, const QString& title, const QColor& fill) {
    auto* button = named(new HoverButton(HoverButton::Kind::filled, title), name);
    button->setFill(fill);
    return button;
}

HoverButton* makeTextButton(const char* name, const QString& title) {
    return named(new HoverButton(HoverButton::Kind::text, title), name);
}

HoverButton* makeQuietButton(const char* name, const QString& title) {
    return named(new HoverButton(HoverButton::Kind::quiet, title), name);
}

}  // namespace tarvin
