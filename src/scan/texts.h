#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvin {

// The fixed texts of a scan. Pure. Any thread. Independent of the locale.

/// A size in decimal units with two decimals: "0.00 KB", "1.05 MB", "5000.00 GB". The units are KB,
/// MB and GB. The division is made in single precision, and the unit is chosen before it, so
/// 999,999 bytes are "1000.00 KB".
[[nodiscard]] std::string getFormattedStringForSize(std::uint64_t bytes);

/// "Elapsed Time: 01:02:03". Hours wrap at 24. Seconds are computed from the fraction of a minute,
/// which can lose one: 61.0 s is "00:01:00". A negative time, NaN and times beyond 64 bits of
/// minutes are shown as zero.
[[nodiscard]] std::string getTimeFormStringForInterval(double seconds);

/// While the collection starts.
[[nodiscard]] std::string_view collectingFilesText();
/// For the current file of the collection. Copies the path's bytes unchanged.
[[nodiscard]] std::string collectingFileText(std::string_view path);
/// While a call on a folder or file does not return.
[[nodiscard]] std::string waitingForText(std::string_view path);
/// When no file was collected.
[[nodiscard]] std::string_view noDuplicatesText();

}  // namespace tarvin
