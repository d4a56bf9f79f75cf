#pragma once

#include <QColor>
#include <QString>
#include <optional>

namespace tarvin {

/// A title with its attributes. The button that shows it chooses the weight.
struct AttributedTitle {
    QString text;
    QColor color;                            ///< invalid: the button's own
    int pixelSize = 13;                      ///< logical pixels
    std::optional<Qt::Alignment> alignment;  ///< horizontal; nullopt: the button's own
    bool underline = false;                  ///< a single line under the whole text

    bool operator==(const AttributedTitle&) const = default;
};

/// A title with the button's own alignment.
[[nodiscard]] inline AttributedTitle setAttributes(const QColor& color, const QString& text,
                                                   int fontSize) {
    return {text, color, fontSize, std::nullopt, false};
}

/// A title with any alignment, underlined if `underline` is set.
[[nodiscard]] inline AttributedTitle setCenterAttributes(const QColor& color, const QString& text,
                                                         bool underline, Qt::Alignment alignment,
                                                         int fontSize) {
    return {text, color, fontSize, alignment, underline};
}

/// A centred title.
[[nodiscard]] inline AttributedTitle setCenterAttributes(const QColor& color, const QString& text,
                                                         int fontSize) {
    return setCenterAttributes(color, text, false, Qt::AlignHCenter, fontSize);
}

}  // namespace tarvin
