#include "cli/json_text.h"

#include "text/hexadecimal.h"
#include "text/shown_name.h"
#include "text/utf8.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvin {

namespace {

/// Every character to be escaped has at most four digits.
void appendEscaped(char32_t codePoint, std::string& text) {
    const std::array<char, 2> bytes{static_cast<char>(codePoint >> 8U),
                                    static_cast<char>(codePoint)};
    text += "\\u";
    text += hexadecimal({bytes.data(), bytes.size()});
}

}  // namespace

void JsonEntries::add(const nlohmann::ordered_json& entry) {
    output_.append(isEmpty_ ? "\n    " : ",\n    ");
    output_.append(harmlessJson(entry.dump()));
    isEmpty_ = false;
}

void JsonEntries::close() {
    output_.append(isEmpty_ ? "]" : "\n  ]");
}

void addPath(nlohmann::ordered_json& entry, const std::string& key, const std::string& path) {
    const bool isUtf8 = isValidUtf8(path);
    entry[key] = isUtf8 ? path : withBadBytesReplaced(path);
    if (!isUtf8) {
        entry[key + "Bytes"] = hexadecimal(path);
    }
}

std::string harmlessJson(std::string text) {
    const bool isAscii =
        std::all_of(text.begin(), text.end(), [](char byte) { return byte >= 0 && byte < '\x7F'; });
    if (isAscii) {
        return text;
    }
    std::string escaped;
    for (std::string_view rest = text; !rest.empty();) {
        const Utf8Character character = firstCharacter(rest);
        if (isHarmless(character)) {
            escaped += rest.substr(0, character.length);
        } else {
            appendEscaped(character.codePoint, escaped);
        }
        rest.remove_prefix(character.length);
    }
    return escaped;
}

}  // namespace tarvin
