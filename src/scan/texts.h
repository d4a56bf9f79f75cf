#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvin {

// The texts of a scan that people see, letter for letter. All pure; any thread; the language and
// number format of the process make no difference.

/// A size in decimal units with two places: "0.00 KB", "1.05 MB", "5000.00 GB". There is no unit
/// below KB and none above GB. The division is made in single precision, and the unit is chosen
/// before it, so 999,999 bytes are "1000.00 KB".
[[nodiscard]] std::string getFormattedStringForSize(std::uint64_t bytes);

/// "Elapsed Time: 01:02:03". Hours begin again at 24. Seconds come out of the fraction of a minute,
/// which can lose one: 61.0 s is "00:01:00". A time that is negative, no number or beyond counting
/// shows as zero.
[[nodiscard]] std::string getTimeFormStringForInterval(double seconds);

/// While the collection starts.
[[nodiscard]] std::string_view collectingFilesText();
/// For each file the collection meets. The path's bytes are taken over as they are.
[[nodiscard]] std::string collectingFileText(std::string_view path);
/// For each file the comparison is done with.
[[nodiscard]] std::string processingFileText(std::string_view path);
/// While a folder or file does not answer.
[[nodiscard]] std::string waitingForText(std::string_view path);
/// What the comparison is called in a sentence and as a title.
[[nodiscard]] std::string_view searchingText();
[[nodiscard]] std::string_view searchingTitle();
/// When the collection found no files at all.
[[nodiscard]] std::string_view noDuplicatesText();
[[nodiscard]] std::string_view productName();

}  // namespace tarvin
