#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <functional>

/// Painting helpers that several controls share. They change only the painter's pen and font. Main
/// thread only.
namespace tarvin {

/// The device pixel ratio of the painter.
[[nodiscard]] double devicePixelRatioOf(const QPainter& painter);

/// The colour of a control that is held down: 12 % darker.
[[nodiscard]] QColor darkened(const QColor& color);

/// Paints an outline of `width` logical pixels just inside `rect`, with square corners and without
/// the blur of a pen at fractional device pixel ratios.
void paintFrame(QPainter& painter, const QRectF& rect, double width, const QColor& color);

/// Paints what `paint` paints inside `rect` as one image of this opacity, 0 to 1. With the
/// painter's own opacity overlapping strokes would show through each other.
void paintFaded(QPainter& painter, const QRect& rect, double opacity,
                const std::function<void(QPainter& painter)>& paint);

/// Paints one line of text, vertically centred in `rect` and elided if it is too wide. `alignment`
/// is horizontal. Line breaks become spaces; markup is not interpreted.
void paintLine(QPainter& painter, const QRect& rect, const QString& text, const QFont& font,
               const QColor& color, Qt::Alignment alignment = Qt::AlignLeft,
               Qt::TextElideMode elide = Qt::ElideRight);

}  // namespace tarvin
