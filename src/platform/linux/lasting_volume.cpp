#include "platform/linux/lasting_volume.h"

#include "platform/posix/small_file.h"

#include <sys/ioctl.h>
#include <sys/vfs.h>

#include <array>
#include <cctype>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarvin {

namespace {

// Magic numbers of file systems, from the kernel's headers; not all are in those of Debian 12.
constexpr std::uint32_t ext4Type = 0xEF53;  // also ext2 and ext3
constexpr std::uint32_t btrfsType = 0x9123683E;
constexpr std::uint32_t xfsType = 0x58465342;
constexpr std::uint32_t f2fsType = 0xF2F52010;

/// The answer of FS_IOC_GETFSUUID, from Linux 6.9 on.
struct VolumeId {
    std::uint8_t length = 0;
    std::array<std::uint8_t, 16> bytes{};
};
static_assert(sizeof(VolumeId) == 17);

void appendHex(std::string& out, std::uint64_t number, unsigned digits) {
    for (unsigned left = digits; left > 0; --left) {
        out += "0123456789abcdef"[number >> ((left - 1) * 4) & 0xFU];
    }
}

/// f_fsid. On ext4 it is made of the UUID, on btrfs of UUID and subvolume; on others it may be the
/// device number, which changes.
std::uint64_t fileSystemIdOf(const struct statfs& about) {
    std::uint64_t id = 0;
    static_assert(sizeof(about.f_fsid) == sizeof(id));
    std::memcpy(&id, &about.f_fsid, sizeof(id));
    return id;
}

std::optional<std::string> uuidOf(int folder) {
    VolumeId id;
    if (::ioctl(folder, _IOR(0x15, 0, VolumeId), &id) != 0 || id.length != id.bytes.size()) {
        return std::nullopt;
    }
    std::string text;
    for (const std::uint8_t byte : id.bytes) {
        appendHex(text, byte, 2);
    }
    return text;
}

/// Hundredths of a second; nullopt if the text is not a number.
std::optional<std::int64_t> centisecondsIn(std::string_view text) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back())) != 0) {
        text.remove_suffix(1);
    }
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size() && number >= 0
               ? std::optional(number)
               : std::nullopt;
}

bool kernelWritesBackSoon() {
    constexpr std::size_t limit = 64;
    return writesBackSoon(
        readSmallFile("/proc/sys/vm/dirty_expire_centisecs", limit).value_or(""),
        readSmallFile("/proc/sys/vm/dirty_writeback_centisecs", limit).value_or(""));
}

}  // namespace

bool writesBackSoon(const std::string& expire, const std::string& interval) {
    // The rest of the time is for writing the pages.
    constexpr std::int64_t most = 100 * FileSystem::timeToSettle.count() * 3 / 4;
    const std::optional<std::int64_t> age = centisecondsIn(expire);
    const std::optional<std::int64_t> step = centisecondsIn(interval);
    // An interval of 0 means never.
    return age && step && *step > 0 && *age <= most && *step <= most && *age + *step <= most;
}

std::optional<std::string> lastingVolumeNameOf(int folder) {
    struct statfs about{};
    if (::fstatfs(folder, &about) != 0 || !kernelWritesBackSoon()) {
        return std::nullopt;
    }
    const auto type = static_cast<std::uint32_t>(about.f_type);
    std::string name;
    appendHex(name, type, 8);
    name += ':';
    if (type == ext4Type || type == btrfsType) {
        const std::uint64_t id = fileSystemIdOf(about);
        appendHex(name, id, 16);
        return id == 0 ? std::nullopt : std::optional(name);
    }
    if (type == xfsType || type == f2fsType) {
        const std::optional<std::string> uuid = uuidOf(folder);
        return uuid ? std::optional(name + *uuid) : std::nullopt;
    }
    return std::nullopt;
}

}  // namespace tarvin
