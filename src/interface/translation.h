#pragma once

#include <QLocale>
#include <QTranslator>
#include <memory>

namespace tarvin {

/// Loads the translation for the first supported language of the locale; nullptr if that is English
/// or if none is supported. Install it before the window is created. Main thread only.
[[nodiscard]] std::unique_ptr<QTranslator> loadTranslation(const QLocale& locale);

}  // namespace tarvin
