#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// Whether an excluded file is there.
enum class Presence : std::uint8_t {
    present,      ///< something exists at the path
    missing,      ///< the path does not exist, and its volume is mounted
    notAttached,  ///< the path does not exist, and may be on a volume that is not mounted
    unknown       ///< the path cannot be looked at, for example because of permissions
};

/// "present", "missing", "notAttached" or "unknown". Pure; any thread.
[[nodiscard]] std::string_view presenceWord(Presence presence);

/// Tests excluded files one by one, without opening any. Any thread.
class ExceptionPresence final {
 public:
    /// `platform` must outlive this object.
    explicit ExceptionPresence(Platform& platform) : platform_(platform) {}

    /// The presence of each path, in order. Blocks while a volume does not respond. A volume that
    /// is mounted or unmounted meanwhile counts as not mounted.
    [[nodiscard]] std::vector<Presence> of(std::span<const std::string> paths) const;

 private:
    Platform& platform_;
};

}  // namespace tarvin
