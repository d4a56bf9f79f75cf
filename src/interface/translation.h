#pragma once

#include <QLocale>
#include <QTranslator>
#include <memory>

namespace tarvin {

/// Loads the translation for the first supported language of the locale; nullptr if that is English
/// or if none is supported. A language is supported in another country's form too, but not in
/// another script. Install it before the window is created. Main thread only.
[[nodiscard]] std::unique_ptr<QTranslator> loadTranslation(const QLocale& locale);

/// Loads Qt's own texts, such as those of its file dialog, in the language of a translation
/// (QTranslator::language); nullptr if Qt's translations are not installed. Main thread only.
[[nodiscard]] std::unique_ptr<QTranslator> loadQtTranslation(const QString& language);

}  // namespace tarvin
