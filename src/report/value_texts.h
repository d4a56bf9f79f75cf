#pragma once

#include "platform/timestamp.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvin {

/// The date in UTC in ISO 8601 format, always with nine decimal places:
/// "2026-01-31T12:00:00.123456789Z". Any thread.
[[nodiscard]] std::string isoDate(Timestamp date);

/// The date and time in the time zone of the process: "2026-01-31 12:00:00". In UTC if the system
/// has no data of the zone. Any thread.
[[nodiscard]] std::string localDate(Timestamp date);

/// "1 file", "2 files": the number and the noun, with an s unless the number is 1. Any thread.
[[nodiscard]] std::string counted(std::uint64_t number, std::string_view noun);

}  // namespace tarvin
