#pragma once

#include <QFont>
#include <QLabel>
#include <QString>

/// Small steps in which the screens make their controls.
namespace tarvin {

class HoverButton;

/// Gives `object` the name by which it is found, and returns it.
template <class Object>
Object* named(Object* object, const char* name) {
    object->setObjectName(QLatin1String(name));
    return object;
}

/// A line of plain text, vertically in the middle of its place.
[[nodiscard]] QLabel* makeLabel(const QString& text, const QFont& font, const QColor& color,
                                Qt::Alignment alignment = Qt::AlignLeft);

/// A flat button on a ground of its own.
[[nodiscard]] HoverButton* makeFilledButton(const char* name, const QString& title,
                                            const QColor& fill);

/// An underlined text that is pressed.
[[nodiscard]] HoverButton* makeTextButton(const char* name, const QString& title);

/// A white button with a thin line.
[[nodiscard]] HoverButton* makeQuietButton(const char* name, const QString& title);

}  // namespace tarvin
