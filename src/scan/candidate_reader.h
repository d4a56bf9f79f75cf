#pragma once

#include "model/file.h"
#include "platform/file_system.h"
#include "scan/budget.h"
#include "scan/folder_descriptors.h"
#include "scan/scan_services.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>

namespace tarvin {

/// The metadata that shows whether a file is still the same, with the same content.
struct FileStamp {
    FileIdentity identity;   ///< inode 0 if the volume was known to be unsteady
    std::uint64_t size = 0;  ///< bytes
    std::optional<Timestamp> modified;
    std::optional<Timestamp> changed;
    std::uint32_t linkCount = 0;

    bool operator==(const FileStamp&) const = default;
};

/// A file that may have duplicates, open for reading.
struct OpenCandidate {
    const File* file = nullptr;
    Descriptor descriptor;
    FileStamp stamp;                   ///< when the file was opened
    std::mutex* onlyReader = nullptr;  ///< held while reading from a rotational disk; else nullptr
};

/// Opens and reads the files of all comparisons of a scan: bounds how many are open, lets one
/// reader at a time read from a rotational disk, counts bytes, logs unreadable files and obeys
/// pause and stop. Any thread.
class CandidateReader final {
 public:
    /// The services must outlive the reader.
    explicit CandidateReader(const ScanServices& services);
    CandidateReader(const CandidateReader&) = delete;
    CandidateReader& operator=(const CandidateReader&) = delete;

    /// Opens the file in its current state. If its date is not the one recorded, finds out whether
    /// its volume is unsteady. Returns nullopt if it cannot be opened, is no longer a
    /// regular file, which is logged as a change, or the scan was stopped. Waits only for the
    /// device and for the end of a pause. Requires a share of descriptors() or keptDescriptors().
    [[nodiscard]] std::optional<OpenCandidate> open(const File& file);

    /// Fills `into` from `offset`. Returns false if the file cannot be read or ends too early,
    /// which is logged as a change, or the scan was stopped. Waits while the scan is paused.
    [[nodiscard]] bool read(const OpenCandidate& candidate, std::uint64_t offset,
                            std::span<std::byte> into);

    /// Reads a whole file into `into`, which has room for its size and one byte more. Returns false
    /// where read() does, and if the file's length has changed since it was opened, which is
    /// logged.
    [[nodiscard]] bool readWhole(const OpenCandidate& candidate, std::span<std::byte> into);

    /// Begins to read `bytes` from `offset` into the page cache, on a rotational disk as its only
    /// reader. Returns when the requests are queued, or soon after a stop.
    void readAhead(const OpenCandidate& candidate, std::uint64_t offset, std::uint64_t bytes);

    /// Disables read-ahead for a file of which only a little will be read.
    void disableReadAhead(const OpenCandidate& candidate) {
        fileSystem_.disableReadAhead(candidate.descriptor);
    }

    /// Whether the open file's stamp is unchanged and the file still has a name. Logs the file if
    /// not, unless the scan was stopped. On an unsteady volume only a change of size is noticed.
    bool isUnchanged(const OpenCandidate& candidate);
    /// Whether a file that was opened again has the stamp of the first time, or at least its size
    /// if the volume is unsteady. Logs the file if not, unless the scan was stopped.
    bool isAsBefore(const FileStamp& before, const OpenCandidate& again);
    /// Whether the stamps of files on this device show no change: equal files there must be
    /// compared a second time.
    [[nodiscard]] bool isUnsteady(std::uint64_t device) const {
        return unsteadyVolumes_.contains(device);
    }
    /// Logs that the file has changed since it was collected, unless the scan was stopped.
    void logChange(const File& file);

    /// Makes a file that has a version doubtful if it is not as it was collected, as far as its
    /// metadata tell.
    void checkVersion(const File& file);

    /// Candidates that may be open at once for one visit. A holder waits only for the device until
    /// it releases its share.
    [[nodiscard]] Budget& descriptors() { return descriptors_; }
    /// Candidates that may be kept open for longer. A separate budget, because its holders wait for
    /// visits.
    [[nodiscard]] Budget& keptDescriptors() { return keptDescriptors_; }
    [[nodiscard]] const ScanControl& control() const { return control_; }
    /// Bytes read so far.
    [[nodiscard]] std::uint64_t bytesRead() const {
        return bytesRead_.load(std::memory_order_relaxed);
    }

 private:
    static constexpr std::uint64_t noDevice = ~std::uint64_t{0};

    [[nodiscard]] std::optional<std::size_t> readSome(const OpenCandidate& candidate,
                                                      std::uint64_t offset,
                                                      std::span<std::byte> into,
                                                      std::size_t enough);
    Result<std::size_t> readThroughDevice(const OpenCandidate& candidate, std::uint64_t offset,
                                          std::span<std::byte> into, std::size_t enough);
    Result<std::size_t> readAlone(const OpenCandidate& candidate, std::uint64_t offset,
                                  std::span<std::byte> into, std::size_t enough);
    std::mutex* onlyReaderOf(std::uint64_t device);

    std::nullopt_t failed(const File& file, SystemError error);
    Result<Descriptor> openOnce(const File& file);
    Result<FileAttributes> attributesNow(const File& file, const Descriptor& descriptor);
    void logUnnamed(const File& file);
    [[nodiscard]] bool isExcused(const FileStamp& before, const FileStamp& now,
                                 const OpenCandidate& candidate);
    bool examineVolume(const File& file, const Descriptor& descriptor);

    FileSystem& fileSystem_;
    const ScanControl& control_;
    IoWatch& watch_;
    UnreadableLog& unreadable_;
    UnsteadyVolumes& unsteadyVolumes_;
    FolderDescriptors folders_;
    Budget descriptors_;
    Budget keptDescriptors_;
    std::atomic<std::uint64_t> bytesRead_{0};
    // A device without a mutex; saves most lookups in devices_.
    std::atomic<std::uint64_t> freelyRead_{noDevice};
    std::mutex devicesMutex_;
    // For each device the mutex of its disk; nullptr unless that is rotational. Guarded by
    // devicesMutex_.
    std::unordered_map<std::uint64_t, std::mutex*> devices_;
    std::unordered_map<std::uint64_t, std::mutex> disks_;  // by number; guarded by devicesMutex_
};

}  // namespace tarvin
