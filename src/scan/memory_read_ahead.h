#pragma once

#include "model/file.h"
#include "scan/scan_services.h"

#include <atomic>
#include <cstdint>
#include <future>
#include <optional>
#include <string>

namespace tarvin {

/// Brings the file of a ScanMemory into the page cache while a scan collects its files, in one pass
/// from its beginning. Afterwards the memory reads single pages, in the order of inode numbers,
/// which is not that of the file; on a device that has to move for each of them that would take as
/// long as the walk. Only the time depends on it: what cannot be opened is not read ahead.
///
/// Made for one scan. One thread, which may be left behind.
class MemoryReadAhead final {
 public:
    static constexpr std::uint64_t mostBytes = std::uint64_t{256} << 20U;

    /// `folder` is that of the memory, of which at most `most` bytes are read ahead. The object
    /// must outlive the task that begin() queues, which may hang as any call on the folder may.
    explicit MemoryReadAhead(std::string folder, std::uint64_t most = mostBytes);
    MemoryReadAhead(const MemoryReadAhead&) = delete;
    MemoryReadAhead& operator=(const MemoryReadAhead&) = delete;

    /// Queues the reading as a task of the pool. It obeys pause and stop. Call at most once.
    void begin(const ScanServices& services);
    /// So many files will be looked up. Each needs a page at most, so beyond that many pages the
    /// rest of a large memory is not worth reading. Any thread, also during the task.
    void expect(std::uint64_t files);
    /// Blocks until the task has ended, or a stop. Then the file is closed: closing it later would
    /// release the POSIX locks with which SQLite keeps other programs away from it. Returns at once
    /// if begin() was not called.
    void wait(const ScanServices& services);

 private:
    void read(const ScanServices& services);
    [[nodiscard]] std::optional<Descriptor> open(FileSystem& fileSystem, std::uint64_t& size) const;

    const std::string folder_;
    const Directory place_;  // of folder_, for the watch
    std::atomic<std::uint64_t> limit_;
    std::future<void> ended_;  // also ready if the pool has dropped the task
};

}  // namespace tarvin
