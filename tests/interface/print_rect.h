#pragma once

#include <QRect>
#include <ostream>

/// Prints a rectangle in a failure message.
inline void PrintTo(const QRect& rect, std::ostream* out) {
    *out << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x' << rect.height();
}
