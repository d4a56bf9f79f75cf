#include "text/shown_name.h"

#include "text/hexadecimal.h"
#include "text/utf8.h"

namespace tarvin {

namespace {

constexpr std::string_view quotationBegin = "$'";

bool isWithin(char32_t codePoint, char32_t first, char32_t last) {
    return codePoint >= first && codePoint <= last;
}

bool isPlain(std::string_view name) {
    if (name.empty() || name.starts_with(quotationBegin)) {
        return false;
    }
    while (!name.empty()) {
        const Utf8Character character = firstCharacter(name);
        if (!isHarmless(character)) {
            return false;
        }
        name.remove_prefix(character.length);
    }
    return true;
}

/// The bytes of one character inside the quotation marks.
std::string escaped(std::string_view bytes, bool isHarmlessCharacter) {
    if (bytes == "\n") {
        return "\\n";
    }
    if (bytes == "\t") {
        return "\\t";
    }
    if (bytes == "\r") {
        return "\\r";
    }
    if (isHarmlessCharacter) {
        const std::string_view backslash = bytes == "'" || bytes == "\\" ? "\\" : "";
        return std::string(backslash).append(bytes);
    }
    std::string result;
    for (std::size_t position = 0; position < bytes.size(); ++position) {
        result += "\\x" + hexadecimal(bytes.substr(position, 1));
    }
    return result;
}

std::string inShellNotation(std::string_view name) {
    std::string result(quotationBegin);
    while (!name.empty()) {
        const Utf8Character character = firstCharacter(name);
        result += escaped(name.substr(0, character.length), isHarmless(character));
        name.remove_prefix(character.length);
    }
    return result += '\'';
}

/// The text with `mark` for each unsafe character.
std::string replaced(std::string_view text, std::string_view mark) {
    std::string result;
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        result += isHarmless(character) ? text.substr(0, character.length) : mark;
        text.remove_prefix(character.length);
    }
    return result;
}

}  // namespace

bool isHarmless(const Utf8Character& character) {
    const char32_t codePoint = character.codePoint;
    const bool isControl = codePoint < 0x20 || isWithin(codePoint, 0x7F, 0x9F);
    const bool isLineEnd = isWithin(codePoint, 0x2028, 0x2029);
    const bool isDirection = codePoint == 0x061C || isWithin(codePoint, 0x200E, 0x200F) ||
                             isWithin(codePoint, 0x202A, 0x202E) ||
                             isWithin(codePoint, 0x2066, 0x2069);
    return character.valid && !isControl && !isLineEnd && !isDirection;
}

std::string shownName(std::string_view name) {
    return isPlain(name) ? std::string(name) : inShellNotation(name);
}

std::string quotedName(std::string_view name) {
    const bool isQuotable = isPlain(name) && name.find('\'') == std::string_view::npos;
    return isQuotable ? std::string("'").append(name).append("'") : inShellNotation(name);
}

std::string printable(std::string_view text) {
    return replaced(text, "?");
}

std::string withHarmfulReplaced(std::string_view text) {
    return replaced(text, "\xEF\xBF\xBD");
}

}  // namespace tarvin
