#include "text/search_key.h"

#include "text/utf8.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace tarvin {

namespace {

struct FreeDeleter {
    void operator()(utf8proc_uint8_t* text) const {
        // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): the library's allocation.
        std::free(text);
    }
};

}  // namespace

std::string searchKey(std::string_view text) {
    const bool isAscii = std::all_of(text.begin(), text.end(), [](char byte) { return byte >= 0; });
    if (isAscii) {
        std::string key(text);
        for (char& byte : key) {
            byte = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
        }
        return key;
    }
    std::string valid = withBadBytesReplaced(text);
    utf8proc_uint8_t* folded = nullptr;
    constexpr auto options =
        // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): a set of flags.
        static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPAT | UTF8PROC_COMPOSE |
                                       UTF8PROC_CASEFOLD | UTF8PROC_STRIPMARK | UTF8PROC_IGNORE);
    const utf8proc_ssize_t length =
        utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(valid.data()),
                     static_cast<utf8proc_ssize_t>(valid.size()), &folded, options);
    const std::unique_ptr<utf8proc_uint8_t, FreeDeleter> owner(folded);
    if (length < 0) {
        return valid;  // memory ran out
    }
    return {reinterpret_cast<const char*>(folded), static_cast<std::size_t>(length)};
}

}  // namespace tarvin
