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

/// The title and the only button of the information window.
[[nodiscard]] std::string_view informationTitle();
[[nodiscard]] std::string_view informationButton();
/// When marking one more file would leave no unmarked file in its set.
[[nodiscard]] std::string_view allFilesOfSetText();

/// When nothing is marked.
[[nodiscard]] std::string_view nothingToDeleteText();
/// While files are moved.
[[nodiscard]] std::string_view deletingText();
[[nodiscard]] std::string_view stopDeletionQuestion();
/// The two lines of a run's report: "Duplicates Cleaned: 3" and "Space Regained: 1.05 MB ", with a
/// trailing space.
[[nodiscard]] std::string duplicatesCleanedText(std::uint64_t count);
[[nodiscard]] std::string spaceRegainedText(std::uint64_t bytes);

/// Before marked files are excluded. `exact`: found by a scan for identical files.
[[nodiscard]] std::string_view exceptionQuestion(bool exact);
/// After it; begins with a newline.
[[nodiscard]] std::string exceptionsAddedText(std::uint64_t count);
[[nodiscard]] std::string_view removeExceptionsQuestion();
/// Begins with a newline.
[[nodiscard]] std::string_view exceptionsRemovedText();

}  // namespace tarvin
