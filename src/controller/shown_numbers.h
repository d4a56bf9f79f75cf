#pragma once

#include "platform/timestamp.h"

#include <QCoreApplication>
#include <QString>
#include <cstdint>

namespace tarvin {

/// Counts, sizes and dates in the language of the window, for the texts that group their digits:
/// "1,406" or "1.406". Those of the results and of the home screen keep plain digits. Main thread.
class ShownNumbers final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::ShownNumbers)

 public:
    [[nodiscard]] static QString count(std::uint64_t number);
    /// "157.46 MB", in the units of getFormattedStringForSize().
    [[nodiscard]] static QString size(std::uint64_t bytes);
    /// Day and minute, in the zone of the machine: "21 November 2026, 14:32".
    [[nodiscard]] static QString dateAndTime(Timestamp time);
};

}  // namespace tarvin
