#pragma once

#include <QString>

namespace tarvin {

/// A text as a tool tip shows it letter for letter: file names may look like markup, which Qt would
/// otherwise follow.
[[nodiscard]] QString plainToolTip(const QString& text);

/// A text on one line: line breaks, tabs and other control characters become blanks.
[[nodiscard]] QString singleLine(const QString& text);

}  // namespace tarvin
