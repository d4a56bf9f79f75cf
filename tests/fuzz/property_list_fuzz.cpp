#include "store/property_list.h"
#include "store/property_list_check.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// Nesting depth of the containers in a list written by libplist, which escapes "<" in texts.
std::size_t levelsOf(std::string_view xml) {
    std::size_t open = 0;
    std::size_t most = 0;
    for (std::size_t at = xml.find('<'); at != std::string_view::npos; at = xml.find('<', at + 1)) {
        const std::string_view tag = xml.substr(at, xml.find('>', at) - at);
        if (tag == "<array" || tag == "<dict") {
            most = std::max(most, ++open);
        } else if (tag == "</array" || tag == "</dict") {
            --open;
        }
    }
    return most;
}

std::size_t bytesOf(const std::vector<std::string>& paths) {
    return std::accumulate(
        paths.begin(), paths.end(), std::size_t{0},
        [](std::size_t sum, const std::string& path) { return sum + path.size(); });
}

[[noreturn]] void fail(const char* what) {
    std::cerr << what << '\n';
    std::abort();
}

/// Parsing must return, with no more levels and bytes than the limits, and paths must survive a
/// round trip.
void check(std::string_view bytes) {
    const auto list = tarvin::PropertyList::parse(bytes);
    if (!list) {
        return;
    }
    static_cast<void>(list->signedNumber("deletedCount"));
    static_cast<void>(list->number("deletedSize"));
    // libplist 2.2 still fills an outermost array that closes itself; the check does not count it.
    if (levelsOf(list->xml()) > tarvin::maxPropertyListDepth + 1) {
        fail("more levels than the limit");
    }
    const auto paths = list->paths();
    // Two bytes of UTF-16 may become three of UTF-8.
    if (bytesOf(paths) > (bytes.size() + tarvin::maxRepeatedBytes) / 2 * 3) {
        fail("more bytes than the limit");
    }
    const auto again = tarvin::PropertyList::parse(tarvin::PropertyList::arrayOfPaths(paths).xml());
    if (!again || again->paths() != paths) {
        fail("paths changed in a round trip");
    }
}

/// An XML list of too many levels after a beginning that may hide them.
std::string levelsBehind(std::string_view beginning) {
    std::string list(beginning);
    for (const std::string_view tag : {"<array>", "</array>"}) {
        for (std::size_t level = 0; level < tarvin::maxPropertyListDepth + 10; ++level) {
            list += tag;
        }
    }
    return list + "--> ]]> ?> \" ]>";
}

void appendNumber(std::string& list, std::uint64_t number) {
    for (unsigned shift = 64; shift > 0; shift -= 8) {
        list += static_cast<char>(number >> (shift - 8) & 0xFFU);
    }
}

/// A binary list whose root is an array of 4,096 references to one object.
std::string repetitionsOf(std::string_view object) {
    std::string list = "bplist00\xAF\x11\x10";
    list += '\0' + std::string(4096, '\x01');
    const std::size_t place = list.size();
    list += object;
    const std::size_t table = list.size();
    appendNumber(list, 8);
    appendNumber(list, place);
    list += std::string(6, '\0') + "\x08\x01";
    appendNumber(list, 2);
    appendNumber(list, 0);
    appendNumber(list, table);
    return list;
}

}  // namespace

/// Mutation rarely produces many levels or repetitions, so they are added: inputs that begin with
/// the marker of a text or data become the repeated object of a binary list, and levels follow all
/// others.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const void* const bytes = data;
    const std::string_view input(static_cast<const char*>(bytes), size);
    check(input);
    const bool isHeld = size > 0 && data[0] >= 0x40 && data[0] <= 0x6F;
    check(isHeld && !input.starts_with('b') ? repetitionsOf(input) : levelsBehind(input));
    return 0;
}
