#include "controls/plain_text.h"

#include <QTextDocument>
#include <algorithm>

namespace tarvin {

namespace {

bool breaksLine(QChar character) {
    return character.category() == QChar::Other_Control ||
           character == QChar(QChar::LineSeparator) ||
           character == QChar(QChar::ParagraphSeparator);
}

}  // namespace

QString plainToolTip(const QString& text) {
    if (!Qt::mightBeRichText(text)) {
        return text;
    }
    return QStringLiteral("<span style=\"white-space:pre\">") + text.toHtmlEscaped() +
           QStringLiteral("</span>");
}

QString singleLine(const QString& text) {
    QString line = text;
    std::replace_if(line.begin(), line.end(), breaksLine, QLatin1Char(' '));
    return line;
}

}  // namespace tarvin
