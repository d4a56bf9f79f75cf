#pragma once

#include <QFont>
#include <QLabel>
#include <QString>

/// Helpers that create controls.
namespace tarvin {

class HoverButton;

/// Sets the object name and returns `object`.
template <class Object>
Object* named(Object* object, const char* name) {
    object->setObjectName(QLatin1String(name));
    return object;
}

/// A line of plain text, vertically centred.
[[nodiscard]] QLabel* makeLabel(const QString& text, const QFont& font, const QColor& color,
                                Qt::Alignment alignment = Qt::AlignLeft);

/// A flat button filled with `fill`.
[[nodiscard]] HoverButton* makeFilledButton(const char* name, const QString& title,
                                            const QColor& fill);

/// A button that is an underlined text.
[[nodiscard]] HoverButton* makeTextButton(const char* name, const QString& title);

/// A white button with an outline.
[[nodiscard]] HoverButton* makeQuietButton(const char* name, const QString& title);

}  // namespace tarvin
