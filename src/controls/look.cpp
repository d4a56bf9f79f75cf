#include "controls/look.h"

#include <QFontDatabase>
#include <QStringList>

namespace tarvin::look {

QFont font(int pixelSize, QFont::Weight weight) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}

QFont propertyFont() {
    QFont font;
    font.setFamilies({QStringLiteral("Helvetica"), QStringLiteral("Arial"),
                      QStringLiteral("Liberation Sans"), QStringLiteral("Nimbus Sans")});
    font.setPixelSize(12);
    return font;
}

}  // namespace tarvin::look
