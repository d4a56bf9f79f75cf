#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <functional>

/// Small painting steps that several controls share. They leave the painter as it was but for its
/// pen and its font. Main thread.
namespace tarvin {

/// How many device pixels the painter makes of a logical one.
[[nodiscard]] double densityOf(const QPainter& painter);

/// The colour of a control that is held down: 12 % darker.
[[nodiscard]] QColor darkened(const QColor& color);

/// A frame of `width` logical pixels just inside `rect`, with square corners and without the blur
/// of a pen at densities that are not whole numbers.
void paintFrame(QPainter& painter, const QRectF& rect, double width, const QColor& color);

/// What `paint` paints inside `rect`, put down as one picture of this opacity, 0 to 1. With the
/// painter's own opacity each stroke would show the stroke below it as well as the ground.
void paintFaded(QPainter& painter, const QRect& rect, double opacity,
                const std::function<void(QPainter& painter)>& paint);

/// One line of text, vertically centred in `rect` and shortened with an ellipsis if it is too wide.
/// `alignment` is horizontal. Line breaks in the text become blanks; markup is shown as it is.
void paintLine(QPainter& painter, const QRect& rect, const QString& text, const QFont& font,
               const QColor& color, Qt::Alignment alignment = Qt::AlignLeft,
               Qt::TextElideMode elide = Qt::ElideRight);

}  // namespace tarvin
