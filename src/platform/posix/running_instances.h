#pragma once

#include "platform/running_instances.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

/// The instances that register in the first usable one of these folders: a missing one is created,
/// one that other users can access is skipped. Each instance has two files there: one that it holds
/// locked while it runs, and a socket that it listens on. The next instance that looks removes
/// those of dead ones. A call waits at most `patience` for another instance that holds the folder's
/// lock.
[[nodiscard]] std::unique_ptr<RunningInstances> makeRunningInstances(
    std::vector<std::string> folders, std::chrono::milliseconds patience = std::chrono::seconds(5));

}  // namespace tarvin
