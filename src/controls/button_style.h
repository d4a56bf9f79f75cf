#pragma once

#include "controls/attributed_title.h"
#include "controls/hover_button.h"

#include <QColor>
#include <QString>

namespace tarvin {

/// What a filled button says.
struct TitleDetail {
    QString title;
    QColor titleColor;
    int font = 14;  ///< size in logical pixels
};

/// Makes a button a filled one: its ground `background`, its corners rounded by `cornerRadious`
/// logical pixels, its title centred in the colour and the size of `titleDetail`.
void setButtonAtrribute(HoverButton& button, double cornerRadious, const QColor& background,
                        const TitleDetail& titleDetail);

/// The same colour, in its own colour space and with its own components, for a painted ground.
// NOLINTNEXTLINE(readability-identifier-naming)
[[nodiscard]] QColor NSColorToCGColor(const QColor& color);

}  // namespace tarvin
