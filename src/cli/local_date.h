#pragma once

#include "platform/timestamp.h"

#include <string>

namespace tarvin {

/// The date and time in the time zone of the process: "2026-01-31 12:00:00". In UTC if the system
/// has no data of the zone. Any thread.
[[nodiscard]] std::string localDate(Timestamp date);

}  // namespace tarvin
