#include "cli/csv_field.h"

namespace tarvin {

std::string csvField(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        return std::string(text);
    }
    std::string quoted = "\"";
    for (const char byte : text) {
        quoted.append(byte == '"' ? 2 : 1, byte);
    }
    return quoted += '"';
}

}  // namespace tarvin
