#pragma once

#include "model/file.h"

#include <atomic>
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

    /// The same with all metadata. The file has a version from then on if keepVersions() was
    /// called.
    File* addFile(const Directory* directory, std::string_view name,
                  const FileAttributes& attributes);
    /// Call before the first file is added. Each file takes 64 bytes more.
    void keepVersions() { keepsVersions_ = true; }
    [[nodiscard]] bool keepsVersions() const { return keepsVersions_; }

    /// The numbers from here on are those of newNumber().
    static constexpr std::uint64_t firstNewNumber = std::uint64_t{1} << 62U;
    /// A number for a comparison or a content that no file of this store has. Any thread.
    [[nodiscard]] std::uint64_t newNumber() {
        return firstNewNumber + newNumbers_.fetch_add(1, std::memory_order_relaxed);
    }
    /// How many numbers newNumber() has returned.
    [[nodiscard]] std::uint64_t newNumbers() const { return newNumbers_; }

    /// Stores the state of a file of this store when it was compared. Any thread, but not at the
    /// same time for one file. For a file with a version also again.
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
    bool keepsVersions_ = false;
    std::deque<FileVersion> versions_;
    std::atomic<std::uint64_t> newNumbers_{0};
    std::mutex comparedMutex_;
    std::deque<ComparedState> compared_;  // guarded by comparedMutex_
};

}  // namespace tarvin
