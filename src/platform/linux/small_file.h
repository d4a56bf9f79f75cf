#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>

namespace tarvin {

/// The whole of a table or settings file as it is now. None if it cannot be read, is no regular
/// file (a symbolic link to one will do) or is larger than `limit` bytes. Never waits for a pipe.
/// Any thread. Good for files of the kernel, too, whose recorded size means nothing.
[[nodiscard]] inline std::optional<std::string> readSmallFile(const std::string& path,
                                                              std::size_t limit) {
    std::error_code failure;
    if (!std::filesystem::is_regular_file(path, failure)) {
        return std::nullopt;
    }
    std::ifstream file(path, std::ios::binary);
    std::string content;
    char portion[8192];
    // A read that fails sets the state that is asked for below; it does not throw.
    while (file.read(portion, sizeof(portion)) || file.gcount() > 0) {
        content.append(portion, static_cast<std::size_t>(file.gcount()));
        if (content.size() > limit) {
            return std::nullopt;
        }
    }
    return file.eof() && !file.bad() ? std::optional(std::move(content)) : std::nullopt;
}

}  // namespace tarvin
