#include "controls/view_background.h"

#include "controls/look.h"

#include <QFontMetrics>
#include <QPaintEvent>

namespace tarvin {

namespace {

/// Paints texts at heights that count from the bottom of the panel.
class TextColumn final {
 public:
    TextColumn(QPainter& painter, int panelHeight) : painter_(painter), panelHeight_(panelHeight) {
        painter_.setPen(Qt::black);
    }

    void write(const QString& text, const QFont& font, int bottom, int height, int width = 400) {
        constexpr int left = 90;
        painter_.setFont(font);
        painter_.drawText(QRect(left, panelHeight_ - bottom - height, width, height),
                          Qt::TextWordWrap | Qt::TextDontClip | Qt::AlignLeft | Qt::AlignTop, text);
    }

 private:
    QPainter& painter_;
    int panelHeight_;
};

}  // namespace

ViewBackground::ViewBackground(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QRect ViewBackground::card() const {
    constexpr QPoint origin(62, 43);  // counted from the lower left
    constexpr QSize size(914, 400);
    return {{origin.x(), height() - origin.y() - size.height()}, size};
}

void ViewBackground::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), look::panelBlue);
    painter.fillRect(card(), look::surface);
    drawTexts(painter);
}

void ViewBackground::drawTexts(QPainter& painter) const {
    const QFont titleFont = look::font(25);
    const QFont headingFont = look::font(13, QFont::Bold);
    const QFont bodyFont = look::font(13);
    const int title = QFontMetrics(titleFont).height();
    const int heading = QFontMetrics(headingFont).height();
    const int body = QFontMetrics(bodyFont).height();
    constexpr int descriptionWidth = 385;

    TextColumn column(painter, height());
    int bottom = height() - 100;
    column.write(tr("Tarvin Duplicate File Remover"), titleFont, bottom, title + 5);
    bottom -= body + 30;
    column.write(tr("Photos occupy most of the space on your Device. Many of them are duplicates. "
                    "Clean all similar photos to recover space."),
                 bodyFont, bottom, body + 25, descriptionWidth);
    bottom -= heading + 40;
    column.write(tr("Search Exact"), headingFont, bottom, heading + 5);
    bottom -= body + 10;
    column.write(tr("Search photos that are similar enough"), bodyFont, bottom, body + 5);
    bottom -= body - 5;
    column.write(tr("to be one and the same file."), bodyFont, bottom, body);
    bottom -= heading + 40;
    column.write(tr("Search Similar"), headingFont, bottom, heading + 5);
    bottom -= body + 10;
    // There is no last line: its text is empty in every language.
    column.write(tr("Search photos that are similar"), bodyFont, bottom, body + 5);
}

}  // namespace tarvin
