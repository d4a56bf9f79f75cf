#pragma once

#include "controls/attributed_title.h"
#include "controls/hover_button.h"

#include <QColor>
#include <QString>

namespace tarvin {

/// The title of a filled button.
struct TitleDetail {
    QString title;
    QColor titleColor;
    int font = 14;  ///< size in logical pixels
};

/// Makes a button a filled one with the colour `background`, corners rounded by `cornerRadious`
/// logical pixels, and the title of `titleDetail`, centred, in its colour and size.
void setButtonAtrribute(HoverButton& button, double cornerRadious, const QColor& background,
                        const TitleDetail& titleDetail);

/// The same colour, in its own colour space and components.
// NOLINTNEXTLINE(readability-identifier-naming)
[[nodiscard]] QColor NSColorToCGColor(const QColor& color);

}  // namespace tarvin
