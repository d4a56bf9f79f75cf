#pragma once

#include "model/file.h"
#include "platform/file_system.h"
#include "scan/budget.h"
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

/// What tells whether a file is still the one it was, with the same content.
struct FileStamp {
    FileIdentity identity;
    std::uint64_t size = 0;  ///< bytes
    std::optional<Timestamp> modified;
    std::optional<Timestamp> changed;
    std::uint32_t linkCount = 0;

    bool operator==(const FileStamp&) const = default;
};

/// A file that may have a twin, open for reading.
struct OpenCandidate {
    const File* file = nullptr;
    Descriptor descriptor;
    FileStamp stamp;                   ///< as it was when it was opened
    std::mutex* onlyReader = nullptr;  ///< held while reading from a device with moving heads
};

/// Opens and reads the files that are compared, for all comparisons of a scan together: bounds how
/// many are open, lets one reader at a time at a rotational device, counts what is read, notes what
/// cannot be read and listens to pause and stop. Any thread.
class CandidateReader final {
 public:
    /// What the references lead to must outlive the reader.
    explicit CandidateReader(const ScanServices& services);
    CandidateReader(const CandidateReader&) = delete;
    CandidateReader& operator=(const CandidateReader&) = delete;

    /// Opens the file as it stands now. None if it cannot be opened, or is a regular file no
    /// longer, or the scan was stopped. Never waits for anything but the device. The caller has
    /// taken a descriptor for it.
    [[nodiscard]] std::optional<OpenCandidate> open(const File& file);

    /// Fills `into` from `offset`. False if the file cannot be read or ends before that, or the
    /// scan was stopped; waits while it is paused.
    [[nodiscard]] bool read(const OpenCandidate& candidate, std::uint64_t offset,
                            std::span<std::byte> into);

    /// Reads a whole file into `into`, which has room for its size and one byte more. False if it
    /// is not exactly as long as it was when it was opened, and where read() is.
    [[nodiscard]] bool readWhole(const OpenCandidate& candidate, std::span<std::byte> into);

    /// Says that little of the file will be read, so that the device is not kept busy with the
    /// rest.
    void disableReadAhead(const OpenCandidate& candidate) {
        fileSystem_.disableReadAhead(candidate.descriptor);
    }

    /// Whether the open file still is what it was when it was opened, and has a name.
    [[nodiscard]] bool isUnchanged(const OpenCandidate& candidate);

    /// How many candidates may be open at once for the time of a visit: whoever takes one of these
    /// waits for nothing but the device until it is given back.
    [[nodiscard]] Budget& descriptors() { return descriptors_; }
    /// How many more may be kept open for longer. A budget of its own, because its holders wait for
    /// others that visit.
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

    [[nodiscard]] std::nullopt_t failed(const File& file, SystemError error);
    Result<Descriptor> openOnce(const File& file, const std::string& path);
    Result<FileAttributes> attributesNow(const File& file, const Descriptor& descriptor);

    FileSystem& fileSystem_;
    const ScanControl& control_;
    IoWatch& watch_;
    UnreadableLog& unreadable_;
    Budget descriptors_;
    Budget keptDescriptors_;
    std::atomic<std::uint64_t> bytesRead_{0};
    // One that any number may read, so that most files need not be looked up in the table.
    std::atomic<std::uint64_t> freelyRead_{noDevice};
    std::mutex devicesMutex_;
    // One entry a device seen; null for a device that any number may read. Guarded by
    // devicesMutex_.
    std::unordered_map<std::uint64_t, std::unique_ptr<std::mutex>> devices_;
};

}  // namespace tarvin
