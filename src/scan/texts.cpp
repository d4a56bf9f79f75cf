#include "scan/texts.h"

#include <array>
#include <charconv>

namespace tarvin {

namespace {

constexpr std::uint64_t kilo = 1'000;
constexpr std::uint64_t mega = 1'000'000;
constexpr std::uint64_t giga = 1'000'000'000;
constexpr double secondsPerMinute = 60.0;

std::string inUnits(std::uint64_t bytes, std::uint64_t bytesPerUnit, std::string_view unit) {
    // Single precision on purpose: a more exact quotient would change the text.
    const float quotient = static_cast<float>(bytes) / static_cast<float>(bytesPerUnit);
    // Unlike printf, to_chars writes a decimal point in every locale.
    std::array<char, 32> digits{};  // the longest text has 14
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                   static_cast<double>(quotient), std::chars_format::fixed, 2);
    std::string text(digits.data(), end.ptr);
    text += ' ';
    text += unit;
    return text;
}

void appendTwoDigits(std::uint64_t number, std::string& out) {
    if (number < 10) {
        out += '0';
    }
    out += std::to_string(number);
}

/// Minutes in `seconds`; 0 if that is negative, NaN or does not fit into 64 bits.
double minutesIn(double seconds) {
    constexpr double tooMany = 18'446'744'073'709'551'616.0;
    const double minutes = seconds / secondsPerMinute;
    return minutes > 0.0 && minutes < tooMany ? minutes : 0.0;
}

std::string with(std::string_view text, std::string_view path) {
    std::string out(text);
    out += path;
    return out;
}

}  // namespace

std::string getFormattedStringForSize(std::uint64_t bytes) {
    if (bytes < mega) {
        return inUnits(bytes, kilo, "KB");
    }
    return bytes < giga ? inUnits(bytes, mega, "MB") : inUnits(bytes, giga, "GB");
}

std::string getTimeFormStringForInterval(double seconds) {
    const double minutes = minutesIn(seconds);
    const auto wholeMinutes = static_cast<std::uint64_t>(minutes);
    const double fraction = minutes - static_cast<double>(wholeMinutes);
    const auto secondsShown = static_cast<std::uint32_t>(fraction * secondsPerMinute);
    std::string text = "Elapsed Time: ";
    appendTwoDigits(wholeMinutes / 60 % 24, text);
    text += ':';
    appendTwoDigits(wholeMinutes % 60, text);
    text += ':';
    appendTwoDigits(secondsShown, text);
    return text;
}

std::string_view collectingFilesText() {
    return "Collecting Files...";
}

std::string collectingFileText(std::string_view path) {
    return with("Collecting Files: ", path);
}

std::string waitingForText(std::string_view path) {
    return with("Waiting for: ", path);
}

std::string_view noDuplicatesText() {
    return "No duplicates File found";
}

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
