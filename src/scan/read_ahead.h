#pragma once

#include "model/file.h"
#include "scan/scan_services.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <unordered_map>
#include <vector>

namespace tarvin {

/// Brings the beginnings of files on rotational disks into the page cache, in the order in which
/// they lie on the disk. Comparisons go size by size, and so from one end of such a disk to the
/// other and back for each pair of files; after a sweep they find small files in memory. Only the
/// time depends on it: what it cannot open or locate is read later by the comparison, which also
/// reports it.
///
/// One sweep at a time goes over each disk. Any thread.
class ReadAhead final {
 public:
    /// A file and how much of its beginning to read.
    struct Wanted {
        File* file = nullptr;
        std::uint64_t bytes = 0;
    };

    /// Bytes that are read ahead of each file of a size class. Small files are read whole, and so
    /// are pictures of a size that few others have: these are most likely copies. Of any other file
    /// it is what a first comparison needs.
    [[nodiscard]] static std::uint64_t bytesAFile(std::uint64_t fileSize, std::size_t fileCount);

    /// Bytes that the sweeps of a comparison should have, one after the other. The first are small,
    /// so that files are decided soon; the last one is repeated. They should fit into the page
    /// cache of any machine, twice: the next sweep begins while the files of the last are compared.
    static constexpr std::uint64_t sweeps[] = {16 << 20, 64 << 20, 128 << 20};

    /// The services must outlive this object.
    explicit ReadAhead(const ScanServices& services) : services_(services) {}
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    /// Whether a file of this folder is on a rotational disk, as far as the folder's device is
    /// known.
    [[nodiscard]] bool isUsefulIn(const Directory& folder);

    /// Asks the system to read the files ahead, those of several disks at the same time. Returns
    /// when the requests are queued, soon after a stop, or at once if the files are in the page
    /// cache. Files that are not on a rotational disk are left out. May be called inside a task of
    /// the pool.
    void sweep(std::span<const Wanted> files);

 private:
    /// A rotational disk.
    struct Disk {
        std::mutex sweeping;
    };

    struct Located {
        std::uint64_t place = 0;  ///< bytes from the beginning of the device
        Wanted wanted;
    };

    [[nodiscard]] std::shared_ptr<Disk> diskOf(std::uint64_t device);
    void sweepDisk(Disk& disk, std::span<const Wanted> files);
    [[nodiscard]] bool areCached(std::span<const Wanted> files);
    [[nodiscard]] std::vector<Located> locate(std::span<const Wanted> files);
    [[nodiscard]] Result<Descriptor> open(const File& file);
    void request(const Wanted& wanted);

    const ScanServices services_;
    std::mutex mutex_;
    // By device; nullptr for one that is not rotational. Guarded by mutex_.
    std::unordered_map<std::uint64_t, std::shared_ptr<Disk>> disks_;
};

}  // namespace tarvin
