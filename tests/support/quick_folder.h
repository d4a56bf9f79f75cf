#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>

namespace tarvin {

/// Returns a folder on tmpfs if there is one, otherwise `otherwise`. For tests of many clean-ups,
/// whose journals sync each batch: hundreds would wait for the disk.
inline std::string quickFolder(
    const std::string& otherwise = std::filesystem::temp_directory_path().native()) {
    const std::string memory = "/dev/shm";
    return ::access(memory.c_str(), W_OK | X_OK) == 0 ? memory : otherwise;
}

}  // namespace tarvin
