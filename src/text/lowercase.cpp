#include "text/lowercase.h"

#include "text/utf8.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>

namespace tarvin {

namespace {

utf8proc_category_t categoryOf(char32_t code) {
    return utf8proc_category(static_cast<utf8proc_int32_t>(code));
}

/// Unicode property Cased, without the characters for which isCaseIgnorable() is true.
bool isCased(char32_t code) {
    struct Range {
        char32_t first;
        char32_t last;
    };
    // Letter-like symbols: ordinals, Roman numerals, circled and squared letters.
    constexpr std::array signs{Range{0xAA, 0xAA},       Range{0xBA, 0xBA},
                               Range{0x2160, 0x217F},   Range{0x24B6, 0x24E9},
                               Range{0x1F130, 0x1F149}, Range{0x1F150, 0x1F169},
                               Range{0x1F170, 0x1F189}};
    const utf8proc_category_t category = categoryOf(code);
    return category == UTF8PROC_CATEGORY_LU || category == UTF8PROC_CATEGORY_LL ||
           category == UTF8PROC_CATEGORY_LT ||
           std::any_of(signs.begin(), signs.end(), [code](const Range& range) {
               return code >= range.first && code <= range.last;
           });
}

/// Unicode property Case_Ignorable: may occur inside a word without being a letter of it.
bool isCaseIgnorable(char32_t code) {
    // Apostrophes, periods, colons and middle dots, which do not end a word.
    constexpr std::array<char32_t, 17> insideWords{0x27,   0x2E,   0x3A,   0xB7,   0x387,  0x55F,
                                                   0x5F4,  0x2018, 0x2019, 0x2024, 0x2027, 0xFE13,
                                                   0xFE52, 0xFE55, 0xFF07, 0xFF0E, 0xFF1A};
    switch (categoryOf(code)) {
        case UTF8PROC_CATEGORY_MN:
        case UTF8PROC_CATEGORY_ME:
        case UTF8PROC_CATEGORY_CF:
        case UTF8PROC_CATEGORY_LM:
        case UTF8PROC_CATEGORY_SK:
            return true;
        default:
            return std::binary_search(insideWords.begin(), insideWords.end(), code);
    }
}

/// Whether the word continues in `text`: a letter follows, after any case-ignorable characters.
bool continuesWord(std::string_view text) {
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        if (!character.valid || !isCaseIgnorable(character.codePoint)) {
            return character.valid && isCased(character.codePoint);
        }
        text.remove_prefix(character.length);
    }
    return false;
}

/// Whether a letter of the same word precedes the character after `character`. `wasInWord`: whether
/// one precedes `character` itself.
bool isInWordAfter(const Utf8Character& character, bool wasInWord) {
    if (character.valid && isCaseIgnorable(character.codePoint)) {
        return wasInWord;
    }
    return character.valid && isCased(character.codePoint);
}

/// Appends the lower case of `code`, which precedes `rest`. `isInWord`: a letter of the same word
/// precedes it.
void appendLowercase(char32_t code, bool isInWord, std::string_view rest, std::string& out) {
    constexpr char32_t capitalSigma = 0x3A3;
    constexpr char32_t finalSigma = 0x3C2;
    constexpr char32_t capitalDottedI = 0x130;
    constexpr char32_t dotAbove = 0x307;
    if (code == capitalSigma && isInWord && !continuesWord(rest)) {
        appendCharacter(finalSigma, out);
    } else if (code == capitalDottedI) {
        out += 'i';
        appendCharacter(dotAbove, out);
    } else {
        appendCharacter(
            static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(code))), out);
    }
}

}  // namespace

std::string lowercase(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    bool isInWord = false;
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        const std::string_view rest = text.substr(character.length);
        if (character.valid) {
            appendLowercase(character.codePoint, isInWord, rest, out);
        } else {
            out += text.front();
        }
        isInWord = isInWordAfter(character, isInWord);
        text = rest;
    }
    return out;
}

}  // namespace tarvin
