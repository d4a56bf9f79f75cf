#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>

namespace tarvin::devices {

/// The absolute path, for a program that goes on in the background, with another current folder.
/// Empty if `path` is.
inline std::string absolute(const std::string& path) {
    return path.empty() ? path : std::filesystem::absolute(path).string();
}

/// Writes the numbers, each on a line of its own. The file appears when it is complete.
inline void writeStatistics(const std::string& file, std::initializer_list<std::uint64_t> numbers) {
    const std::string unfinished = file + ".part";
    {
        std::ofstream output(unfinished);
        for (const std::uint64_t number : numbers) {
            output << number << '\n';
        }
    }
    std::filesystem::rename(unfinished, file);
}

}  // namespace tarvin::devices
