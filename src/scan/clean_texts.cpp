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

std::string_view informationTitle() {
    return "Information";
}

std::string_view informationButton() {
    return "Ok";
}

std::string_view allFilesOfSetText() {
    return "All the files of same set cannot be selected";
}

std::string_view nothingToDeleteText() {
    return "Please select any file to delete.";
}

std::string_view deletingText() {
    return "Deleting files, please wait...";
}

std::string_view stopDeletionQuestion() {
    return "Are you sure, you want to stop this process?";
}

std::string duplicatesCleanedText(std::uint64_t count) {
    return "Duplicates Cleaned: " + std::to_string(count);
}

std::string spaceRegainedText(std::uint64_t bytes) {
    return "Space Regained: " + getFormattedStringForSize(bytes) + " ";
}

std::string_view exceptionQuestion(bool exact) {
    return exact ? "The selected files will be excluded from all future scans. Press \"OK\" to "
                   "exclude."
                 : "The selected similar photos will be excluded from all future scans. Press "
                   "\"Ok\" to exclude.";
}

std::string exceptionsAddedText(std::uint64_t count) {
    return "\nSuccessfully added " + std::to_string(count) + " files to exceptions.";
}

std::string_view removeExceptionsQuestion() {
    return "Are you sure, you want to remove all exceptions?";
}

std::string_view exceptionsRemovedText() {
    return "\nAll exceptions has been removed.";
}

}  // namespace tarvin
