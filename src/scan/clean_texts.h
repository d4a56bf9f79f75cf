#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvin {

// The fixed texts of marking, cleaning up and excluding, trailing spaces included. Pure. Any
// thread. Sizes have the format of getFormattedStringForSize().

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
