#pragma once

#include "platform/timestamp.h"

#include <QCoreApplication>
#include <QString>
#include <cstdint>

namespace tarvin {

/// Counts, sizes and dates in the window's language with grouped digits: "1,406" or "1.406".
/// Results and home screen use plain digits instead. Main thread only.
class ShownNumbers final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::ShownNumbers)

 public:
    [[nodiscard]] static QString count(std::uint64_t number);
    /// "157.46 MB", in the units of getFormattedStringForSize().
    [[nodiscard]] static QString size(std::uint64_t bytes);
    /// In two digits below 10 of its unit, in whole numbers above: "7.1 MB", "19 MB", "0.4 KB".
    [[nodiscard]] static QString shortSize(std::uint64_t bytes);
    /// "157.5 MB" or "12.4 GB", but "157 KB": for sizes that change. The units are KB, MB and GB.
    [[nodiscard]] static QString roundedSize(std::uint64_t bytes);
    /// Local date and time: "21 November 2026, 14:32".
    [[nodiscard]] static QString dateAndTime(Timestamp time);
};

}  // namespace tarvin
