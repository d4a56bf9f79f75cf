#pragma once

#include <QColor>
#include <QString>
#include <optional>

namespace tarvin {

/// A title with its looks. Which weight it gets is decided by the button that shows it.
struct AttributedTitle {
    QString text;
    QColor color;                            ///< invalid: the button's own
    int pixelSize = 13;                      ///< logical pixels
    std::optional<Qt::Alignment> alignment;  ///< horizontal; none: the button's own
    bool underline = false;                  ///< a single line under the whole text

    bool operator==(const AttributedTitle&) const = default;
};

/// A title as the button aligns its own.
[[nodiscard]] AttributedTitle setAttributes(const QColor& color, const QString& text, int fontSize);

/// A centred title.
[[nodiscard]] AttributedTitle setCenterAttributes(const QColor& color, const QString& text,
                                                  int fontSize);

/// A title with any alignment, underlined if `underline` is set.
[[nodiscard]] AttributedTitle setCenterAttributes(const QColor& color, const QString& text,
                                                  bool underline, Qt::Alignment alignment,
                                                  int fontSize);

}  // namespace tarvin
