#pragma once

#include "model/file.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvin {

/// Owns the folders, names and files of one scan, in large blocks to save allocations. One thread
/// adds; other threads may read what they were passed after it was added. Memory is released only
/// with the store.
class FileStore final : public std::enable_shared_from_this<FileStore> {
 public:
    /// Stores are shared: each set that holds a file of a store keeps the store alive.
    [[nodiscard]] static std::shared_ptr<FileStore> create();

    FileStore(const FileStore&) = delete;
    FileStore& operator=(const FileStore&) = delete;
    ~FileStore();

    /// Adds the folder at which a walk begins, by its absolute path. Removes trailing slashes.
    Directory* addRoot(std::string_view path);
    /// Adds a folder inside `parent`, which is in this store.
    Directory* addDirectory(const Directory* parent, std::string_view name);
    /// Adds a file inside `directory`, which is in this store. The file lives as long as the store.
    File* addFile(const Directory* directory, std::string_view name, std::uint64_t fileSize,
                  std::optional<Timestamp> modified, std::optional<Timestamp> created);

    /// Stores the state of a file of this store when it was compared. Call at most once for each
    /// file. Any thread, but not at the same time for one file.
    void keepCompared(File& file, const ComparedState& state);

    /// Returns a reference that keeps the whole store alive. Does not allocate.
    [[nodiscard]] std::shared_ptr<File> share(File* file);

    /// Creates a file with a separate store, for callers without a scan.
    [[nodiscard]] static std::shared_ptr<File> standalone(
        std::string_view path, std::uint64_t fileSize,
        std::optional<Timestamp> modified = std::nullopt,
        std::optional<Timestamp> created = std::nullopt);

    [[nodiscard]] std::size_t fileCount() const { return fileCount_; }

 private:
    FileStore();
    /// Returns a null-terminated copy.
    std::string_view keepName(std::string_view name);

    std::vector<std::unique_ptr<char[]>> nameBlocks_;
    std::size_t nameBlockUsed_ = 0;
    std::size_t nameBlockSize_ = 0;
    std::deque<Directory> directories_;
    std::vector<std::unique_ptr<std::byte[]>> fileBlocks_;
    std::size_t fileBlockUsed_ = 0;
    std::size_t fileCount_ = 0;
    std::mutex comparedMutex_;
    std::deque<ComparedState> compared_;  // guarded by comparedMutex_
};

}  // namespace tarvin
