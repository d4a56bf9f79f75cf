#include "controller/shown_numbers.h"

#include "scan/texts.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>
#include <chrono>

namespace tarvin {

namespace {

/// The user's locale if its language is the window's, otherwise the default one of that language.
QLocale localeOf(const QString& language) {
    const QLocale own;
    const QLocale window(language);
    if (own != QLocale::c() && own.language() == window.language()) {
        return own;
    }
    return window.language() == QLocale::English ? QLocale(QLocale::English, QLocale::UnitedKingdom)
                                                 : window;
}

}  // namespace

QString ShownNumbers::count(std::uint64_t number) {
    return localeOf(tr("en", "the code of the language of these texts"))
        .toString(static_cast<qulonglong>(number));
}

QString ShownNumbers::size(std::uint64_t bytes) {
    QString text = QString::fromStdString(getFormattedStringForSize(bytes));
    const QLocale locale = localeOf(tr("en", "the code of the language of these texts"));
    return text.replace(QLatin1Char('.'), locale.decimalPoint());
}

QString ShownNumbers::shortSize(std::uint64_t bytes) {
    constexpr std::uint64_t step = 1000;
    std::uint64_t unit = step;
    const auto rounded = [bytes](std::uint64_t part) {
        return bytes / part + std::uint64_t{bytes % part >= part / 2};
    };
    const char* name = "KB";
    for (const char* const larger : {"MB", "GB"}) {
        if (rounded(unit) < step) {
            break;
        }
        unit *= step;
        name = larger;
    }
    const std::uint64_t tenths = rounded(unit / 10);
    const QLocale locale = localeOf(tr("en", "the code of the language of these texts"));
    QString number = QString::number(tenths < 100 ? tenths / 10 : rounded(unit));
    if (tenths < 100) {
        number += locale.decimalPoint() + QString::number(tenths % 10);
    }
    return number + QLatin1Char(' ') + QLatin1String(name);
}

QString ShownNumbers::roundedSize(std::uint64_t bytes) {
    constexpr double kilo = 1e3;
    constexpr double mega = 1e6;
    constexpr double giga = 1e9;
    // The next unit begins where the rounded number would reach 1000.
    constexpr std::uint64_t leastMega = 999'500;
    constexpr std::uint64_t leastGiga = 999'950'000;
    const QLocale locale = localeOf(tr("en", "the code of the language of these texts"));
    const auto number = static_cast<double>(bytes);
    if (bytes < leastMega) {
        return locale.toString(number / kilo, 'f', 0) + QStringLiteral(" KB");
    }
    return bytes < leastGiga ? locale.toString(number / mega, 'f', 1) + QStringLiteral(" MB")
                             : locale.toString(number / giga, 'f', 1) + QStringLiteral(" GB");
}

QString ShownNumbers::dateAndTime(Timestamp time) {
    const auto sinceEpoch =
        std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch());
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(sinceEpoch.count());
    const QLocale locale = localeOf(tr("en", "the code of the language of these texts"));
    // Removes the day of the week.
    static const QRegularExpression weekday(QStringLiteral("^dddd[,.]?\\s*|[,.]?\\s*dddd$"));
    const QString format = locale.dateFormat(QLocale::LongFormat).remove(weekday);
    return tr("%1, %2", "date, time")
        .arg(locale.toString(local.date(), format),
             locale.toString(local.time(), QLocale::ShortFormat));
}

}  // namespace tarvin
