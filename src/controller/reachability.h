#pragma once

namespace tarvin {

/// Whether the system is connected to the Internet, as far as it knows; where nothing tells it, a
/// read will find out. Main thread.
[[nodiscard]] bool isInternetReachable();

}  // namespace tarvin
