#pragma once

#include "network/network_access.h"

namespace tarvin {

/// The network of the installation, loaded at the first call, which takes some ten milliseconds;
/// null if it is missing. One for the process. Main thread.
NetworkAccess* installedNetwork();

}  // namespace tarvin
