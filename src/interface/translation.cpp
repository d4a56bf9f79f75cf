#include "interface/translation.h"

#include <QDir>
#include <QLibraryInfo>
#include <QStringList>

namespace tarvin {

namespace {

/// The translation in a language and its script, from the same country if there is one; empty if
/// there is none. So Canadian French is French, and no Chinese is shown in the script of another.
QString translationIn(const QLocale& wanted) {
    const QString prefix = QStringLiteral("tarvin_");
    const QString suffix = QStringLiteral(".qm");
    const QDir folder(QStringLiteral(":/translations"));
    QString found;
    for (const QString& file : folder.entryList({prefix + QLatin1Char('*') + suffix})) {
        const QLocale offered(file.mid(prefix.size()).chopped(suffix.size()));
        if (offered.language() != wanted.language() || offered.script() != wanted.script()) {
            continue;
        }
        if (found.isEmpty() || offered.territory() == wanted.territory()) {
            found = folder.filePath(file);
        }
    }
    return found;
}

}  // namespace

std::unique_ptr<QTranslator> loadTranslation(const QLocale& locale) {
    auto translator = std::make_unique<QTranslator>();
    for (const QString& language : locale.uiLanguages()) {
        const QLocale wanted(language);
        if (wanted.language() == QLocale::English) {
            break;
        }
        const QString file = translationIn(wanted);
        if (!file.isEmpty() && translator->load(file)) {
            return translator;
        }
    }
    return nullptr;
}

std::unique_ptr<QTranslator> loadQtTranslation(const QString& language) {
    auto translator = std::make_unique<QTranslator>();
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (!translator->load(QLocale(language), QStringLiteral("qtbase"), QStringLiteral("_"),
                          folder)) {
        return nullptr;
    }
    return translator;
}

}  // namespace tarvin
