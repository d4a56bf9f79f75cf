#pragma once

#include <QLocale>
#include <QTranslator>
#include <memory>

namespace tarvin {

/// The texts of the program in the first of the locale's languages that it speaks; none if that is
/// English, or if it speaks none of them. To be installed before the window is made. Main thread.
[[nodiscard]] std::unique_ptr<QTranslator> loadTranslation(const QLocale& locale);

}  // namespace tarvin
