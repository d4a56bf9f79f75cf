#pragma once

#include "platform/timestamp.h"

#include <string>

namespace tarvin {

/// The date in UTC in ISO 8601 format, always with nine decimal places:
/// "2026-01-31T12:00:00.123456789Z". Any thread.
[[nodiscard]] std::string isoDate(Timestamp date);

}  // namespace tarvin
