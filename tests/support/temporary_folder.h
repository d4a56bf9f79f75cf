#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>

namespace tarvin {

/// A temporary folder, removed on destruction. Names are relative to it and may contain slashes;
/// missing folders are made. Aborts if it cannot be made.
class TemporaryFolder final {
 public:
    explicit TemporaryFolder(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path())
        : path_(parent / "tarvin-test-XXXXXX") {
        if (::mkdtemp(path_.data()) == nullptr) {
            std::cerr << "cannot make a temporary folder '" << path_ << "'\n";
            std::abort();
        }
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    /// Absolute, without a trailing slash.
    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string pathOf(std::string_view name) const {
        return std::string(path_).append("/").append(name);
    }

    // Each makes an entry and returns its absolute path, which many callers know already.
    // NOLINTBEGIN(modernize-use-nodiscard)
    std::string makeFolder(std::string_view name) const {
        std::string path = pathOf(name);
        std::filesystem::create_directories(path);
        return path;
    }

    std::string writeFile(std::string_view name, std::string_view content) const {
        std::string path = pathWithFolders(name);
        std::ofstream file(path, std::ios::binary);
        file.write(content.data(), static_cast<std::streamsize>(content.size()));
        return path;
    }

    /// Makes a symbolic link to `target`, which is not resolved.
    std::string makeLink(std::string_view name, const std::string& target) const {
        std::string path = pathWithFolders(name);
        std::filesystem::create_symlink(target, path);
        return path;
    }
    // NOLINTEND(modernize-use-nodiscard)

 private:
    [[nodiscard]] std::string pathWithFolders(std::string_view name) const {
        std::string path = pathOf(name);
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        return path;
    }

    std::string path_;
};

}  // namespace tarvin
