#pragma once

#include "model/file.h"
#include "scan/comparison_order.h"
#include "scan/scan_services.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace tarvin {

/// Brings the beginnings of files on rotational disks into the page cache, in the order in which
/// they lie on the disk. Comparisons go size by size, and so from one end of such a disk to the
/// other and back for each pair of files; after a sweep they find small files in memory. What
/// several comparisons want at the same time is read in one sweep. Only the time depends on it:
/// what it cannot open or locate is read later by the comparison, which also reports it.
///
/// One sweep at a time goes over each disk, while comparisons read what the last one brought. Any
/// thread.
class ReadAhead final {
 public:
    /// A part of a file to read.
    struct Wanted {
        File* file = nullptr;
        std::uint64_t offset = 0;
        std::uint64_t bytes = 0;
    };

    /// Bytes that are read ahead of each file of a size class, from its beginning. Small files are
    /// read whole, and so are pictures of a size that few others have: these are most likely
    /// copies. Of any other file it is what is compared before its stretches are read.
    [[nodiscard]] static std::uint64_t bytesAFile(std::uint64_t fileSize, std::size_t fileCount);
    /// The same, from its end: few files of one size most likely begin alike, and then their ends
    /// are compared.
    [[nodiscard]] static std::uint64_t bytesOfEnd(std::uint64_t fileSize, std::size_t fileCount);
    /// Whether so many files of one size are most likely copies.
    [[nodiscard]] static bool areLikelyCopies(std::size_t fileCount);

    /// The most that is read ahead of the beginning of a large file.
    static constexpr std::uint64_t beginningBytes = ComparisonOrder::edgeBytes + 256 * 1024;

    /// What a comparison should request at a time. The first request is of fewer files, so that
    /// some are decided after 20 s even if each of them is at another place.
    static constexpr std::uint64_t bytesARequest = 128 << 20;
    static constexpr std::size_t filesOfTheFirstRequest = 4096;
    static constexpr std::size_t filesARequest = 32 * 1024;
    /// A sweep begins no further request when it has so many bytes. They should fit into the page
    /// cache of any machine, twice: the next sweep begins while the files of the last are compared.
    static constexpr std::uint64_t mostBytesASweep = 128 << 20;
    /// How long the first sweep waits for the comparisons that are expected, unless the scan is
    /// stopped. They need so long to sort a million files.
    static constexpr std::chrono::milliseconds patience{1000};

    /// The services must outlive this object.
    explicit ReadAhead(const ScanServices& services) : services_(services) {}
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    /// Whether a file of this folder is on a rotational disk, as far as the folder's device is
    /// known.
    [[nodiscard]] bool isUsefulIn(const Directory& folder);

    /// So many comparisons begin at about the same time. Each must call request() or
    /// expectOneLess(). The first sweep waits for them, so that all their files are in it.
    void expect(std::size_t comparisons);
    /// A comparison that was expected requests nothing.
    void expectOneLess();

    /// Queues the files for the next sweep; those that are not on a rotational disk are left out of
    /// it. `done` is called when their reading has been requested from the system, soon after a
    /// stop, or at once if the files are in the page cache: within sweep(), on any thread that
    /// calls it. It may request again and must not throw.
    void request(std::vector<Wanted> files, std::function<void()> done);

    /// Carries out the requests, several disks at the same time, until none is left. Returns at
    /// once if another thread does so. May be called inside a task of the pool; to be called after
    /// each request.
    void sweep();

 private:
    struct Request {
        std::vector<Wanted> files;
        std::function<void()> done;
    };

    struct Located {
        std::uint64_t place = 0;  ///< bytes from the beginning of the device
        Wanted wanted;
    };

    [[nodiscard]] std::optional<std::uint64_t> rotationalDiskOf(const Directory& folder);
    void waitForExpected(std::unique_lock<std::mutex>& lock);
    [[nodiscard]] std::list<Request> takeForOneSweep();
    void sweepOnce(const std::list<Request>& requests);
    void sweepDisk(std::span<const Wanted> files);
    [[nodiscard]] bool areCached(std::span<const Wanted> files);
    [[nodiscard]] std::vector<Located> locate(std::span<const Wanted> files);
    [[nodiscard]] Result<Descriptor> open(const File& file);
    void readAhead(const Wanted& wanted);

    const ScanServices services_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::list<Request> requests_;  // guarded by mutex_
    std::size_t expected_ = 0;     // guarded by mutex_
    std::size_t requested_ = 0;    // so far; guarded by mutex_
    bool isSweeping_ = false;      // guarded by mutex_
    // Rotational disks by device; nullopt for others. Guarded by mutex_.
    std::unordered_map<std::uint64_t, std::optional<std::uint64_t>> disks_;
};

}  // namespace tarvin
