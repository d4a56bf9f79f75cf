#pragma once

#include <QRect>
#include <ostream>

/// How a failed test shows a place.
inline void PrintTo(const QRect& rect, std::ostream* out) {
    *out << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x' << rect.height();
}
