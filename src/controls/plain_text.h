#pragma once

#include <QString>

namespace tarvin {

/// A text for a tool tip with markup escaped: file names may look like markup.
[[nodiscard]] QString plainToolTip(const QString& text);

/// A text on one line: line breaks, tabs and other control characters become spaces.
[[nodiscard]] QString singleLine(const QString& text);

}  // namespace tarvin
