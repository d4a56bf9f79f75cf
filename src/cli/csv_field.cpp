#include "cli/csv_field.h"

namespace tarvin {

namespace {

/// Whether a spreadsheet would take the text for a formula.
bool isCalculated(std::string_view text) {
    constexpr std::string_view beginnings = "=+-@\t\r";
    return !text.empty() && beginnings.find(text.front()) != std::string_view::npos;
}

}  // namespace

std::string csvField(std::string_view text) {
    const bool isFormula = isCalculated(text);
    if (!isFormula && text.find_first_of(",\"\r\n") == std::string_view::npos) {
        return std::string(text);
    }
    std::string quoted = isFormula ? "\"'" : "\"";
    for (const char byte : text) {
        quoted.append(byte == '"' ? 2 : 1, byte);
    }
    return quoted += '"';
}

}  // namespace tarvin
