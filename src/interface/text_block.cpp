#include "interface/text_block.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>

namespace tarvin {

namespace {

/// Wraps the text at `width` and centres each line in its line height. Returns the height of all
/// lines.
int layOut(QTextLayout& layout, int width, int linePitch, Qt::Alignment alignment) {
    QTextOption option(alignment & Qt::AlignHorizontal_Mask);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    int height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height + (linePitch - line.height()) / 2});
        height += linePitch;
    }
    layout.endLayout();
    return height;
}

/// Line breaks of the text become line separators.
QString brokenText(const QString& text) {
    QString broken = text;
    return broken.replace(QLatin1Char('\n'), QChar::LineSeparator);
}

}  // namespace

TextBlock::TextBlock(const QFont& font, int linePitch, const QColor& color, QWidget* parent)
    : QLabel(parent), linePitch_(linePitch) {
    setFont(font);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, color);
    setPalette(colors);
}

int TextBlock::heightForWidth(int width) const {
    QTextLayout layout(brokenText(text()), font());
    return layOut(layout, width, linePitch_, alignment());
}

QSize TextBlock::sizeHint() const {
    const int width = fontMetrics().size(0, text()).width();
    return {width, heightForWidth(width)};
}

void TextBlock::paintEvent(QPaintEvent*) {
    QTextLayout layout(brokenText(text()), font());
    const QRect area = contentsRect();
    const int height = layOut(layout, area.width(), linePitch_, alignment());
    const QRect lines = QStyle::alignedRect(layoutDirection(), alignment() & Qt::AlignVertical_Mask,
                                            {area.width(), height}, area);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    layout.draw(&painter, lines.topLeft());
}

}  // namespace tarvin
