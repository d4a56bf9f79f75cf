#include "report/csv_field.h"

#include "text/hexadecimal.h"
#include "text/shown_name.h"
#include "text/utf8.h"

namespace tarvin {

namespace {

/// Whether a spreadsheet would evaluate the text as a formula.
bool isFormula(std::string_view text) {
    constexpr std::string_view beginnings = "=+-@\t\r";
    return !text.empty() && beginnings.find(text.front()) != std::string_view::npos;
}

/// The name with U+FFFD for what `display` cannot show.
std::string shownIn(const std::string& name, Display display) {
    if (display.isTerminal) {
        return withHarmfulReplaced(name);
    }
    return isValidUtf8(name) ? name : withBadBytesReplaced(name);
}

}  // namespace

std::string csvField(std::string_view text) {
    const bool needsApostrophe = isFormula(text);
    if (!needsApostrophe && text.find_first_of(",\"\r\n") == std::string_view::npos) {
        return std::string(text);
    }
    std::string quoted = needsApostrophe ? "\"'" : "\"";
    for (const char byte : text) {
        quoted.append(byte == '"' ? 2 : 1, byte);
    }
    return quoted += '"';
}

std::string csvName(const std::string& name, Display display) {
    return csvField(shownIn(name, display));
}

std::string csvPath(const std::string& path, Display display) {
    const std::string shown = shownIn(path, display);
    return csvField(shown) + ',' + (shown == path ? "" : hexadecimal(path));
}

}  // namespace tarvin
