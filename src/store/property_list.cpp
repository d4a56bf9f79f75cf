#include "store/property_list.h"

#include "store/plist_library.h"
#include "store/property_list_check.h"
#include "text/utf8.h"

#include <plist/plist.h>

#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>
#include <type_traits>
#include <utility>

namespace tarvin {

namespace {

/// The length of the first UTF-8 character of `text` if XML can represent it; 0 if not. XML parsers
/// read a carriage return as a newline, so it cannot be represented.
std::size_t plainCharacter(std::string_view text) {
    const Utf8Character character = firstCharacter(text);
    const char32_t code = character.codePoint;
    const bool isOfXml =
        code == '\t' || code == '\n' || (code >= 0x20 && code != 0xFFFE && code != 0xFFFF);
    return character.valid && isOfXml ? character.length : 0;
}

bool isPlain(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = plainCharacter(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

/// False for a path with white space at an end, which a parser may strip.
bool isString(const std::string& path) {
    constexpr std::string_view blanks = " \t\n";
    return blanks.find(path.front()) == std::string_view::npos &&
           blanks.find(path.back()) == std::string_view::npos && isPlain(path);
}

/// The integer part of a number, if the type can represent it.
template <typename Number>
std::optional<Number> wholePart(double number) {
    const double beyond = std::ldexp(1.0, std::numeric_limits<Number>::digits);
    const double lowest = std::is_signed_v<Number> ? -beyond : 0.0;
    return number >= lowest && number < beyond ? std::optional(static_cast<Number>(number))
                                               : std::nullopt;
}

template <typename Number>
std::optional<Number> numberOfDigits(const std::string& digits) {
    Number number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [rest, failure] = std::from_chars(digits.data(), end, number);
    return failure == std::errc() && rest == end ? std::optional(number) : std::nullopt;
}

std::string xmlOf(plist_t node) {
    char* text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(node, &text, &length);
    std::string copy(text == nullptr ? "" : text, text == nullptr ? 0 : length);
    freeWrittenList(text);
    return copy;
}

/// libplist returns the 64 bits of an integer without its sign, but writes the sign.
bool isBelowZero(plist_t integer) {
    return xmlOf(integer).find("<integer>-") != std::string::npos;
}

std::string textOf(plist_t string) {
    std::uint64_t length = 0;
    const char* bytes = plist_get_string_ptr(string, &length);
    return {bytes, static_cast<std::size_t>(length)};
}

/// The value of an integer, a real or a string of digits. 0 for an integer outside of the type's
/// range.
template <typename Number>
std::optional<Number> numberOf(plist_t item) {
    if (item == nullptr) {
        return std::nullopt;
    }
    switch (plist_get_node_type(item)) {
        case PLIST_UINT: {
            std::uint64_t bits = 0;
            plist_get_uint_val(item, &bits);
            const bool fits =
                isBelowZero(item) ? std::is_signed_v<Number> : std::in_range<Number>(bits);
            return fits ? static_cast<Number>(bits) : 0;
        }
        case PLIST_REAL: {
            double number = 0;
            plist_get_real_val(item, &number);
            return wholePart<Number>(number);
        }
        case PLIST_STRING:
            return numberOfDigits<Number>(textOf(item));
        default:
            return std::nullopt;
    }
}

/// An integer with its sign. plist_new_uint() writes numbers of 64 bits as negative ones in some
/// versions; a parsed integer is written as it was read.
plist_t integerOf(const std::string& digits) {
    const std::string text = "<plist><integer>" + digits + "</integer></plist>";
    plist_t integer = nullptr;
    plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &integer);
    return integer;
}

}  // namespace

void PropertyList::Deleter::operator()(void* root) const {
    plist_free(root);
}

std::optional<PropertyList> PropertyList::parse(std::string_view bytes) {
    if (bytes.empty() || bytes.size() > std::numeric_limits<std::uint32_t>::max() ||
        !isSafePropertyList(bytes)) {
        return std::nullopt;
    }
    plist_t root = readPropertyList(bytes);
    return root == nullptr ? std::nullopt : std::optional(PropertyList(root));
}

PropertyList PropertyList::dictionary() {
    return PropertyList(plist_new_dict());
}

PropertyList PropertyList::arrayOfPaths(const std::vector<std::string>& paths) {
    plist_t array = plist_new_array();
    for (const std::string& path : paths) {
        if (path.empty()) {
            continue;
        }
        plist_array_append_item(array, isString(path) ? plist_new_string(path.c_str())
                                                      : plist_new_data(path.data(), path.size()));
    }
    return PropertyList(array);
}

bool PropertyList::isDictionary() const {
    return plist_get_node_type(root_.get()) == PLIST_DICT;
}

bool PropertyList::isArray() const {
    return plist_get_node_type(root_.get()) == PLIST_ARRAY;
}

std::vector<std::string> PropertyList::paths() const {
    std::vector<std::string> paths;
    // Access by index searches a binary list from the beginning each time.
    plist_array_iter position = nullptr;
    plist_array_new_iter(root_.get(), &position);
    const std::unique_ptr<void, decltype(&std::free)> owner(position, &std::free);
    const std::uint32_t count = plist_array_get_size(root_.get());
    for (std::uint32_t index = 0; index < count; ++index) {
        plist_t item = nullptr;
        plist_array_next_item(root_.get(), position, &item);
        std::uint64_t length = 0;
        const char* bytes = plist_get_node_type(item) == PLIST_DATA
                                ? plist_get_data_ptr(item, &length)
                                : plist_get_string_ptr(item, &length);
        if (bytes != nullptr && length > 0) {
            paths.emplace_back(bytes, static_cast<std::size_t>(length));
        }
    }
    return paths;
}

std::optional<std::uint64_t> PropertyList::number(const char* key) const {
    return numberOf<std::uint64_t>(plist_dict_get_item(root_.get(), key));
}

std::optional<std::int64_t> PropertyList::signedNumber(const char* key) const {
    return numberOf<std::int64_t>(plist_dict_get_item(root_.get(), key));
}

bool PropertyList::has(const char* key) const {
    return plist_dict_get_item(root_.get(), key) != nullptr;
}

std::optional<std::string> PropertyList::text(const char* key) const {
    plist_t item = plist_dict_get_item(root_.get(), key);
    if (item == nullptr || plist_get_node_type(item) != PLIST_STRING) {
        return std::nullopt;
    }
    return textOf(item);
}

void PropertyList::setNumber(const char* key, std::uint64_t number) {
    plist_dict_set_item(root_.get(), key, integerOf(std::to_string(number)));
}

void PropertyList::setSignedNumber(const char* key, std::int64_t number) {
    plist_dict_set_item(root_.get(), key, integerOf(std::to_string(number)));
}

std::string PropertyList::xml() const {
    return xmlOf(root_.get());
}

}  // namespace tarvin
