#include "report/json_text.h"

#include "text/hexadecimal.h"
#include "text/shown_name.h"
#include "text/utf8.h"

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
