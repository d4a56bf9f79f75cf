#include "platform/linux/mount_table.h"

#include "platform/posix/small_file.h"

#include <sys/sysmacros.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <system_error>

namespace tarvin {

namespace {

// Bytes; a hundred thousand mounts take a fraction of it.
constexpr std::size_t maxTableBytes = std::size_t{64} << 20;

constexpr auto pseudoTypes = std::to_array<std::string_view>(
    {"anon_inodefs", "apparmorfs",  "autofs",     "bdev",      "binder",     "binfmt_misc",
     "bpf",          "cgroup",      "cgroup2",    "configfs",  "cpuset",     "dax",
     "debugfs",      "devfs",       "devpts",     "devtmpfs",  "dmabuf",     "efivarfs",
     "fuse.lxcfs",   "fuse.portal", "fusectl",    "hugetlbfs", "ipathfs",    "mqueue",
     "nfsd",         "nsfs",        "openpromfs", "pidfs",     "pipefs",     "proc",
     "pstore",       "resctrl",     "rpc_pipefs", "secretmem", "securityfs", "selinuxfs",
     "smackfs",      "sockfs",      "spufs",      "sysfs",     "tracefs",    "usbdevfs",
     "usbfs",        "xenfs"});
static_assert(std::is_sorted(pseudoTypes.begin(), pseudoTypes.end()));

/// Removes and returns the text before the next `separator`, or all of it if there is none.
std::string_view takeUntil(std::string_view& text, char separator) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return taken;
}

/// Removes and returns the next word; words are separated by any number of spaces and tabs.
std::string_view takeField(std::string_view& line) {
    constexpr std::string_view separators = " \t";
    line.remove_prefix(std::min(line.find_first_not_of(separators), line.size()));
    const std::size_t end = std::min(line.find_first_of(separators), line.size());
    const std::string_view field = line.substr(0, end);
    line.remove_prefix(end);
    return field;
}

bool isOctal(char digit) {
    return digit >= '0' && digit <= '7';
}

/// The byte of an escape (a backslash and three octal digits) at the beginning of `text`.
std::optional<char> escapedByte(std::string_view text) {
    // Three octal digits have nine bits.
    if (text.size() < 4 || text[0] != '\\' || text[1] < '0' || text[1] > '3' || !isOctal(text[2]) ||
        !isOctal(text[3])) {
        return std::nullopt;
    }
    const int value = (text[1] - '0') * 64 + (text[2] - '0') * 8 + (text[3] - '0');
    return static_cast<char>(static_cast<unsigned char>(value));
}

std::string unescaped(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const std::optional<char> byte = escapedByte(text);
        out += byte.value_or(text.front());
        text.remove_prefix(byte ? 4 : 1);
    }
    return out;
}

std::optional<unsigned> parseNumber(std::string_view text) {
    unsigned number = 0;
    const char* const end = text.data() + text.size();
    // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): the end is given.
    const auto [stopped, failure] = std::from_chars(text.data(), end, number);
    if (failure != std::errc() || stopped != end) {
        return std::nullopt;
    }
    return number;
}

std::optional<std::uint64_t> parseDevice(std::string_view text) {
    const auto major = parseNumber(takeUntil(text, ':'));
    const auto minor = parseNumber(text);
    if (!major || !minor) {
        return std::nullopt;
    }
    return makedev(*major, *minor);
}

/// Removes the optional fields, any number of them, and the dash behind them.
bool skipOptionalFields(std::string_view& rest) {
    while (!rest.empty()) {
        if (takeUntil(rest, ' ') == "-") {
            return true;
        }
    }
    return false;
}

std::optional<MountEntry> parseLine(std::string_view line) {
    takeUntil(line, ' ');  // mount ID
    takeUntil(line, ' ');  // parent ID
    const auto device = parseDevice(takeUntil(line, ' '));
    const std::string_view root = takeUntil(line, ' ');
    const std::string_view mountPoint = takeUntil(line, ' ');
    takeUntil(line, ' ');  // options
    if (!device || !mountPoint.starts_with('/') || !skipOptionalFields(line)) {
        return std::nullopt;
    }
    const std::string_view type = takeUntil(line, ' ');
    // Fields are separated by one space each; an empty source leaves two spaces.
    const std::string_view source = takeUntil(line, ' ');
    if (type.empty()) {
        return std::nullopt;
    }
    return MountEntry{*device, unescaped(mountPoint), unescaped(type), unescaped(source),
                      unescaped(root)};
}

}  // namespace

std::vector<MountEntry> parseMountInfo(std::string_view text) {
    std::vector<MountEntry> entries;
    while (!text.empty()) {
        if (auto entry = parseLine(takeUntil(text, '\n'))) {
            entries.push_back(std::move(*entry));
        }
    }
    return entries;
}

std::vector<std::string> parseFileSystemTable(std::string_view text) {
    std::vector<std::string> mountPoints;
    while (!text.empty()) {
        std::string_view line = takeUntil(text, '\n');
        const std::string_view source = takeField(line);
        std::string mountPoint = unescaped(takeField(line));
        while (mountPoint.ends_with('/')) {
            mountPoint.pop_back();
        }
        if (!source.starts_with('#') && mountPoint.starts_with('/')) {
            mountPoints.push_back(std::move(mountPoint));
        }
    }
    return mountPoints;
}

std::optional<std::vector<MountEntry>> readMountInfo(const std::string& path) {
    const auto text = readSmallFile(path, maxTableBytes);
    if (!text) {
        return std::nullopt;
    }
    return parseMountInfo(*text);
}

std::optional<MountEntry> findMount(std::uint64_t number, const std::string& path) {
    const auto text = readSmallFile(path, maxTableBytes);
    if (!text) {
        return std::nullopt;
    }
    const std::string start = std::to_string(number) + ' ';
    std::string_view rest = *text;
    while (!rest.empty()) {
        const std::string_view line = takeUntil(rest, '\n');
        if (line.starts_with(start)) {
            return parseLine(line);
        }
    }
    return std::nullopt;
}

bool isPseudoFileSystemType(std::string_view type) {
    return std::binary_search(pseudoTypes.begin(), pseudoTypes.end(), type);
}

}  // namespace tarvin
