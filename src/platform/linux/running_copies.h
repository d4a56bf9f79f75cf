#pragma once

#include "platform/running_copies.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

/// The copies that meet in the first of these folders that can be used: one that is missing is
/// made, one that somebody else could reach into is passed over. Each copy has two files there, one
/// that it holds locked for as long as it lives and a socket that it listens at; those of copies
/// that are gone are removed by the next who looks. A call waits no longer than `patience` for
/// another copy that is in the folder just now.
[[nodiscard]] std::unique_ptr<RunningCopies> makeRunningCopies(
    std::vector<std::string> folders, std::chrono::milliseconds patience = std::chrono::seconds(5));

}  // namespace tarvin
