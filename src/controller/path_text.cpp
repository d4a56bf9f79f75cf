#include "controller/path_text.h"

#include <QChar>
#include <QTextBoundaryFinder>
#include <QVector>
#include <algorithm>

namespace tarvin {

namespace {

bool isMisleading(QChar character) {
    switch (character.category()) {
        case QChar::Other_Control:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return true;
        default:
            break;
    }
    switch (character.direction()) {
        case QChar::DirLRE:
        case QChar::DirLRO:
        case QChar::DirRLE:
        case QChar::DirRLO:
        case QChar::DirPDF:
        case QChar::DirLRI:
        case QChar::DirRLI:
        case QChar::DirFSI:
        case QChar::DirPDI:
            return true;
        default:
            return false;
    }
}

}  // namespace

QString textOfPath(std::string_view path) {
    QString text = QString::fromUtf8(path.data(), static_cast<qsizetype>(path.size()));
    std::replace_if(text.begin(), text.end(), isMisleading, QChar(QChar::ReplacementCharacter));
    return text;
}

QString shortTextOfName(std::string_view name, int maxCharacters) {
    QString text = textOfPath(name);
    QVector<qsizetype> ends;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    while (finder.toNextBoundary() > 0) {
        ends.push_back(finder.position());
    }
    const qsizetype count = ends.size();
    if (count <= maxCharacters) {
        return text;
    }
    const int after = (maxCharacters - 1) / 2;
    const int before = maxCharacters - 1 - after;
    return text.left(ends[before - 1]) + QChar(0x2026) + text.mid(ends[count - after - 1]);
}

}  // namespace tarvin
