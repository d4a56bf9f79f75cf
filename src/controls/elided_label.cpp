#include "controls/elided_label.h"

#include "controls/look.h"
#include "controls/painting.h"
#include "controls/plain_text.h"

#include <QEvent>
#include <QFontMetrics>

namespace tarvin {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setFont(look::font(13));
    setTextColor(look::ink);
}

ElidedLabel::ElidedLabel(const QString& text, QWidget* parent) : ElidedLabel(parent) {
    setText(text);
}

void ElidedLabel::setText(const QString& text) {
    QLabel::setText(text);
    setToolTip(plainToolTip(text));
}

void ElidedLabel::setElideMode(Qt::TextElideMode mode) {
    mode_ = mode;
    update();
}

void ElidedLabel::setFramed(bool framed) {
    constexpr int padding = 13;  // including the outline
    framed_ = framed;
    setContentsMargins(framed ? QMargins(padding, 0, padding, 0) : QMargins());
    update();
}

void ElidedLabel::setTextColor(const QColor& color) {
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, color);
    setPalette(colors);
}

QColor ElidedLabel::textColor() const {
    return palette().color(QPalette::WindowText);
}

QString ElidedLabel::shownText() const {
    return fontMetrics().elidedText(singleLine(text()), mode_, contentsRect().width());
}

bool ElidedLabel::isElided() const {
    return fontMetrics().horizontalAdvance(singleLine(text())) > contentsRect().width();
}

QSize ElidedLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(singleLine(text())), fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance(QChar(0x2026)), fontMetrics().height()};
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && !isElided()) {
        event->ignore();
        return true;
    }
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (framed_) {
        painter.fillRect(rect(), look::surface);
        paintFrame(painter, rect(), 1, look::frame);
    }
    paintLine(painter, contentsRect(), text(), font(), textColor(),
              alignment() & Qt::AlignHorizontal_Mask, mode_);
}

}  // namespace tarvin
