#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvin {

// The fixed texts of scans, marking, cleaning up and excluding, trailing spaces included. Pure. Any
// thread. Independent of the locale.

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

/// "Marked Duplicate Files: 3".
[[nodiscard]] std::string markedFilesText(std::uint64_t count);
/// "Marked File Size: 1.05 MB".
[[nodiscard]] std::string markedSizeText(std::uint64_t bytes);
/// "Files cleaned so far: 3 (1.05 MB)", over all runs.
[[nodiscard]] std::string cleanedSoFarText(std::int64_t count, std::uint64_t bytes);

/// The two lines of a run's report: "Duplicates Cleaned: 3" and "Space Regained: 1.05 MB ", with a
/// trailing space.
[[nodiscard]] std::string duplicatesCleanedText(std::uint64_t count);
[[nodiscard]] std::string spaceRegainedText(std::uint64_t bytes);

/// After marked files were excluded; begins with a newline.
[[nodiscard]] std::string exceptionsAddedText(std::uint64_t count);
/// Begins with a newline.
[[nodiscard]] std::string_view exceptionsRemovedText();

}  // namespace tarvin
