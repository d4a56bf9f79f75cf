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

/// Owns the folders, names and files of one scan in large blocks: a million files cost a million
/// records and their names, and no allocation each. One thread adds; what has been added may be
/// read by any thread that was handed it afterwards. Nothing is given back before the store ends.
class FileStore final : public std::enable_shared_from_this<FileStore> {
 public:
    /// Stores are shared: every set that holds a file of a store keeps the store alive.
    [[nodiscard]] static std::shared_ptr<FileStore> create();

    FileStore(const FileStore&) = delete;
    FileStore& operator=(const FileStore&) = delete;
    ~FileStore();

    /// The folder a walk begins at, by its absolute path. Slashes at the end are dropped.
    Directory* addRoot(std::string_view path);
    /// A folder inside `parent`, which is of this store.
    Directory* addDirectory(const Directory* parent, std::string_view name);
    /// A file inside `directory`, which is of this store. The answer lives as long as the store.
    File* addFile(const Directory* directory, std::string_view name, std::uint64_t fileSize,
                  std::optional<Timestamp> modified, std::optional<Timestamp> created);

    /// Keeps what a file of this store was when it was compared; once for a file. Any thread, but
    /// not at the same time for one file.
    void keepCompared(File& file, const ComparedState& state);

    /// A reference that keeps the whole store alive; no allocation.
    [[nodiscard]] std::shared_ptr<File> share(File* file);

    /// A file with a store of its own, for callers that have a path and no scan.
    [[nodiscard]] static std::shared_ptr<File> standalone(
        std::string_view path, std::uint64_t fileSize,
        std::optional<Timestamp> modified = std::nullopt,
        std::optional<Timestamp> created = std::nullopt);

    [[nodiscard]] std::size_t fileCount() const { return fileCount_; }

 private:
    FileStore();
    /// The copy is followed by a zero byte.
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
