#include "controller/path_text.h"

#include <QChar>
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

}  // namespace tarvin
