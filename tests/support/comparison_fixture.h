#pragma once

#include "model/file_store.h"
#include "platform/file_system.h"
#include "scan/duplicate_finder.h"
#include "support/scan_tools.h"
#include "support/temporary_folder.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// Files in a temporary folder and a DuplicateFinder that compares them. Records every report.
class ComparisonFixture final : public ScanObserver {
 public:
    explicit ComparisonFixture(FileSystem& fileSystem = systemFileSystem(),
                               WorkerPool::Limits workers = {2, 4})
        : tools_(fileSystem, workers),
          finder_(tools_.services(), *this, gate_, processed_, bytes_) {}

    /// Writes a file and appends it to the list.
    File* add(std::string_view name, std::string_view content) {
        return addPath(folder_.writeFile(name, content), content.size());
    }

    /// Appends a file with a recorded size to the list; does not access the path.
    File* addPath(const std::string& path, std::uint64_t recordedSize) {
        const std::size_t slash = path.rfind('/');
        const Directory* directory = store_->addRoot(std::string_view(path).substr(0, slash));
        list_.push_back(store_->addFile(directory, std::string_view(path).substr(slash + 1),
                                        recordedSize, std::nullopt, std::nullopt));
        return list_.back();
    }

    /// Compares the files of the list.
    std::shared_ptr<Modal> find() { return finder_.findDuplicates(list_, *store_); }

    void processing(const std::string& path, std::uint64_t) override {
        const std::lock_guard lock(mutex_);
        reported_.push_back(path);
    }

    [[nodiscard]] std::vector<std::string> reported() {
        const std::lock_guard lock(mutex_);
        return reported_;
    }

    [[nodiscard]] TemporaryFolder& folder() { return folder_; }
    [[nodiscard]] std::vector<File*>& list() { return list_; }
    [[nodiscard]] ScanControl& control() { return tools_.control(); }
    [[nodiscard]] UnreadableReport unreadable() const { return tools_.unreadable().report(); }
    [[nodiscard]] DuplicateFinder& finder() { return finder_; }
    [[nodiscard]] FileStore& store() { return *store_; }
    [[nodiscard]] std::uint64_t processed() const { return processed_; }
    [[nodiscard]] BytesCompared bytes() const { return bytes_.now(); }

 private:
    TemporaryFolder folder_;
    std::shared_ptr<FileStore> store_ = FileStore::create();
    std::vector<File*> list_;
    ScanTools tools_;
    ProgressGate gate_{std::chrono::milliseconds(0)};
    std::atomic<std::uint64_t> processed_{0};
    ComparedBytes bytes_{1};
    DuplicateFinder finder_;
    std::mutex mutex_;
    std::vector<std::string> reported_;  // guarded by mutex_
};

/// `size` pseudo-random bytes, determined by the seed.
inline std::string noise(std::size_t size, std::uint64_t seed) {
    std::string bytes(size, '\0');
    std::uint64_t state = seed * 0x9E3779B97F4A7C15U + 1;
    for (char& byte : bytes) {
        state ^= state << 13U;
        state ^= state >> 7U;
        state ^= state << 17U;
        byte = static_cast<char>(state >> 56U);
    }
    return bytes;
}

}  // namespace tarvin
