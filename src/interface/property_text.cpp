#include "interface/property_text.h"

#include "controls/look.h"

#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>

namespace tarvin {

PropertyText::PropertyText(QWidget* parent) : QTextEdit(parent) {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setAcceptRichText(false);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setFont(look::propertyFont());
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setContextMenuPolicy(Qt::NoContextMenu);
}

void PropertyText::setText(const QString& text) {
    constexpr int linePitch = 19;
    text_ = text;
    setPlainText(text);
    QTextBlockFormat format;
    format.setLineHeight(linePitch, QTextBlockFormat::FixedHeight);
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(format);
    // The spacing of a line lies above its letters, so the first line starts higher.
    constexpr int padding = 10;
    constexpr int paddingAbove = 7;
    QTextFrame* page = document()->rootFrame();
    QTextFrameFormat margins = page->frameFormat();
    margins.setMargin(padding);
    margins.setTopMargin(paddingAbove);
    page->setFrameFormat(margins);
}

}  // namespace tarvin
