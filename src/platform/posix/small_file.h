#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>

namespace tarvin {

/// The content of a table or settings file. Returns nullopt if it cannot be read, is not a regular
/// file (symbolic links are followed) or is larger than `limit` bytes. Also for kernel files, whose
/// recorded size is 0. Any thread.
[[nodiscard]] inline std::optional<std::string> readSmallFile(const std::string& path,
                                                              std::size_t limit) {
    std::error_code failure;
    if (!std::filesystem::is_regular_file(path, failure)) {
        return std::nullopt;
    }
    std::ifstream file(path, std::ios::binary);
    std::string content;
    char chunk[8192];
    // A failed read sets the state that is checked below; it does not throw.
    while (file.read(chunk, sizeof(chunk)) || file.gcount() > 0) {
        content.append(chunk, static_cast<std::size_t>(file.gcount()));
        if (content.size() > limit) {
            return std::nullopt;
        }
    }
    return file.eof() && !file.bad() ? std::optional(std::move(content)) : std::nullopt;
}

}  // namespace tarvin
