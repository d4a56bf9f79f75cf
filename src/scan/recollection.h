#pragma once

#include "model/file_store.h"
#include "platform/timestamp.h"
#include "scan/category.h"
#include "scan/category_lists.h"
#include "scan/memory_read_ahead.h"
#include "scan/memory_report.h"
#include "scan/scan_services.h"
#include "store/scan_memory.h"
#include "store/store_error.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarvin {

/// Connects the files of one scan with the memory of earlier ones. Only files on volumes with
/// lasting names are remembered, and only with dates that had settled when the scan began (see
/// FileSystem::timeToSettle): then the dates would show every later change.
///
/// Each category has memories of its own, because a file whose names are in two categories is
/// compared with other files in each.
///
/// Made for one scan. Its functions may block like any access to the data folder. One thread at a
/// time.
class Recollection final {
 public:
    /// `now` is when the scan started, before any file was read.
    Recollection(std::string folder, Timestamp now)
        : folder_(std::move(folder)), now_(now), readAhead_(folder_) {}

    /// Lets the pool read the memory ahead until recall(). Call when the collection begins.
    void readAhead(const ScanServices& services) { readAhead_.begin(services); }
    /// Fills in what is known of the collected files. Ends early after a stop.
    void recall(CategoryLists& lists, const ScanServices& services);
    /// Stores what has been found out of them; `store` owns them. Does nothing if that is nothing
    /// new, or the memory could not be used.
    void store(const FileStore& store);

    [[nodiscard]] const MemoryReport& report() const { return report_; }

 private:
    using Lists = std::array<std::vector<File*>, allCategories.size()>;

    struct Volume {
        std::string name;  // empty if it has none that lasts
        Lists lists;       // by category, each by inode
    };

    void sortByVolume(CategoryLists& lists, const ScanServices& services);
    void add(File& file, Category category, const ScanServices& services);
    void dropAmbiguousVolumes();
    [[nodiscard]] std::uint64_t filesToFind() const;
    [[nodiscard]] bool find(ScanMemory& memory, const Volume& volume, const ScanControl& control);
    [[nodiscard]] bool findFiles(ScanMemory& memory, const std::string& name,
                                 std::span<File* const> all, const ScanControl& control);
    void takeFound(std::span<File* const> files, std::span<const RememberedFile> found) const;
    [[nodiscard]] std::optional<StoreError> storeIn(ScanMemory& memory, std::uint64_t newNumbers);
    static void addTo(ScanMemory& memory, const std::string& name, std::span<File* const> files);
    [[nodiscard]] bool hasSettled(const File& file) const;
    [[nodiscard]] static bool isToBeStored(const File& file);
    [[nodiscard]] std::optional<ScanMemory> open();
    [[nodiscard]] bool recallFromMemory(const ScanControl& control);
    void forgetFound();
    [[nodiscard]] std::int64_t today() const;

    const std::string folder_;
    const Timestamp now_;
    std::unordered_map<std::uint64_t, Volume> volumes_;  // by device
    std::optional<std::int64_t> generation_;  // of the memory that the known numbers are from
    MemoryReport report_;
    MemoryReadAhead readAhead_;
};

}  // namespace tarvin
