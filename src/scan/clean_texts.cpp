#include "scan/clean_texts.h"

#include "scan/texts.h"

namespace tarvin {

std::string markedFilesText(std::uint64_t count) {
    return "Marked Duplicate Files: " + std::to_string(count);
}

std::string markedSizeText(std::uint64_t bytes) {
    return "Marked File Size: " + getFormattedStringForSize(bytes);
}

std::string cleanedSoFarText(std::int64_t count, std::uint64_t bytes) {
    return "Files cleaned so far: " + std::to_string(count) + " (" +
           getFormattedStringForSize(bytes) + ")";
}

std::string duplicatesCleanedText(std::uint64_t count) {
    return "Duplicates Cleaned: " + std::to_string(count);
}

std::string spaceRegainedText(std::uint64_t bytes) {
    return "Space Regained: " + getFormattedStringForSize(bytes) + " ";
}

std::string exceptionsAddedText(std::uint64_t count) {
    return "\nSuccessfully added " + std::to_string(count) + " files to exceptions.";
}

std::string_view exceptionsRemovedText() {
    return "\nAll exceptions has been removed.";
}

}  // namespace tarvin
