#include "interface/translation.h"

#include <QStringList>

namespace tarvin {

namespace {

bool isEnglish(const QString& language) {
    return QLocale(language).language() == QLocale::English;
}

}  // namespace

std::unique_ptr<QTranslator> loadTranslation(const QLocale& locale) {
    auto translator = std::make_unique<QTranslator>();
    for (const QString& language : locale.uiLanguages()) {
        if (isEnglish(language)) {
            break;
        }
        if (translator->load(QLocale(language), QStringLiteral("tarvin"), QStringLiteral("_"),
                             QStringLiteral(":/translations"))) {
            return translator;
        }
    }
    return nullptr;
}

}  // namespace tarvin
