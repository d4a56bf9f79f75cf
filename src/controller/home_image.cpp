#include "controller/home_image.h"

#include "scan/texts.h"

#include <QByteArray>
#include <charconv>
#include <limits>
#include <string>
#include <system_error>

namespace tarvin {

namespace {

/// The number at the beginning of a text, after spaces and a sign; 0 if there is none.
std::int32_t decimalNumber(const QString& text) {
    using Limits = std::numeric_limits<std::int32_t>;
    QByteArray digits = text.trimmed().toLatin1();
    // from_chars() does not read a plus, and "+-1" is not a number.
    if (digits.startsWith('+') && !digits.startsWith("+-")) {
        digits.remove(0, 1);
    }
    std::int32_t number = 0;
    const auto read = std::from_chars(digits.cbegin(), digits.cend(), number);
    if (read.ec == std::errc::result_out_of_range) {
        return digits.startsWith('-') ? Limits::min() : Limits::max();
    }
    return number;
}

}  // namespace

std::int32_t homeImageCounter(const QVariant& stored) {
    return stored.isValid() ? decimalNumber(stored.toString()) : 1;
}

QString homeImageName(std::int32_t counter) {
    switch (counter) {
        case 2:
            return QStringLiteral("HomePage2.png");
        case 3:
            return QStringLiteral("HomePage3.png");
        default:
            return QStringLiteral("HomePage1.png");
    }
}

std::int32_t nextHomeImageCounter(std::int32_t counter) {
    if (counter == 3) {
        return 1;
    }
    // Wraps around: the largest number is followed by the smallest.
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(counter) + 1U);
}

QString storedHomeImageCounter(std::int32_t counter) {
    return QString::number(counter);
}

QString HomeTexts::cleanHistory(std::int64_t alreadyDeletedCount,
                                std::uint64_t alreadyDeletedSize) {
    const std::string size = getFormattedStringForSize(alreadyDeletedSize);
    return tr("Files cleaned so far: %1 (%2)")
        .arg(QString::number(alreadyDeletedCount), QString::fromStdString(size));
}

}  // namespace tarvin
