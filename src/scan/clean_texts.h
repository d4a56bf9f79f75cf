#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvin {

// The texts of marking, cleaning up and excluding that people see, letter for letter, trailing
// blanks included. All pure; any thread; sizes as getFormattedStringForSize() writes them.

/// "Marked Duplicate Files: 3".
[[nodiscard]] std::string markedFilesText(std::uint64_t count);
/// "Marked File Size: 1.05 MB".
[[nodiscard]] std::string markedSizeText(std::uint64_t bytes);
/// "Files cleaned so far: 3 (1.05 MB)", over all runs.
[[nodiscard]] std::string cleanedSoFarText(std::int64_t count, std::uint64_t bytes);

/// The title of every information, and of its one button.
[[nodiscard]] std::string_view informationTitle();
[[nodiscard]] std::string_view informationButton();
/// When marking one more file would leave none of its set.
[[nodiscard]] std::string_view allFilesOfSetText();

/// When nothing is marked.
[[nodiscard]] std::string_view nothingToDeleteText();
/// While files are moved.
[[nodiscard]] std::string_view deletingText();
[[nodiscard]] std::string_view stopDeletionQuestion();
/// The two lines of the report on what one run has moved: "Duplicates Cleaned: 3" and
/// "Space Regained: 1.05 MB ", which ends with a blank.
[[nodiscard]] std::string duplicatesCleanedText(std::uint64_t count);
[[nodiscard]] std::string spaceRegainedText(std::uint64_t bytes);

/// Before marked files are excluded. `exact` says that they come from a scan for identical files.
[[nodiscard]] std::string_view exceptionQuestion(bool exact);
/// Afterwards; begins with a line break.
[[nodiscard]] std::string exceptionsAddedText(std::uint64_t count);
[[nodiscard]] std::string_view removeExceptionsQuestion();
/// Begins with a line break, too.
[[nodiscard]] std::string_view exceptionsRemovedText();

}  // namespace tarvin
