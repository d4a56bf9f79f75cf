#include "scan/candidate_reader.h"

#include "scan/inner_wait.h"
#include "scan/open_with_retry.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string>
#include <utility>

namespace tarvin {

namespace {

// Reserved for the rest of the process: standard streams, libraries, folders being listed.
constexpr std::size_t descriptorsNotForFiles = 32;
constexpr std::size_t minDescriptors = 2;
constexpr std::size_t maxDescriptors = 512;
// Between two checks for a stop.
constexpr std::uint64_t bytesARequest = 4 * 1024 * 1024;

constexpr std::size_t maxFolders = 1024;

std::size_t freeDescriptors(std::size_t limit) {
    return limit > descriptorsNotForFiles ? limit - descriptorsNotForFiles : 0;
}

/// A quarter of the free descriptors.
std::size_t foldersToKeep(std::size_t limit) {
    return std::min(freeDescriptors(limit) / 4, maxFolders);
}

/// Half of the others: one half is for visits, the other for files kept open.
std::size_t openAtOnce(std::size_t limit) {
    const std::size_t spare = freeDescriptors(limit) - foldersToKeep(limit);
    return std::clamp(spare / 2, minDescriptors, maxDescriptors);
}

/// Whether another folder may be at the path of one that is open.
bool isOfAnOldFolder(SystemError error) {
    return error.code == ENOENT || error.code == ESTALE;
}

void doubt(const File& file) {
    if (FileVersion* const version = file.version()) {
        version->isDoubtful = true;
    }
}

/// What was compared at another time must not be said of the file unless it is as collected.
void doubtUnlessCollected(const File& file, const FileAttributes& now) {
    const FileVersion* const version = file.version();
    if (version != nullptr &&
        (version->identity != now.identity || version->changed != now.changed ||
         file.fileSize() != now.size || file.fileModificationDate() != now.modified)) {
        doubt(file);
    }
}

FileStamp stampOf(const FileAttributes& attributes) {
    return {attributes.identity, attributes.size, attributes.modified, attributes.changed,
            attributes.linkCount};
}

/// The lock of a device that is read by one thread at a time.
std::unique_lock<std::mutex> lockOf(std::mutex& device) {
    const InnerWait wait;
    return std::unique_lock(device);
}

/// What a stamp holds.
FileAttributes attributesIn(const FileStamp& stamp) {
    FileAttributes attributes;
    attributes.identity = stamp.identity;
    attributes.size = stamp.size;
    attributes.modified = stamp.modified;
    attributes.changed = stamp.changed;
    return attributes;
}

}  // namespace

CandidateReader::CandidateReader(const ScanServices& services)
    : fileSystem_(services.fileSystem),
      control_(services.control),
      watch_(services.watch),
      unreadable_(services.unreadable),
      unsteadyVolumes_(services.unsteadyVolumes),
      folders_(fileSystem_, foldersToKeep(fileSystem_.descriptorLimit())),
      descriptors_(openAtOnce(fileSystem_.descriptorLimit())),
      keptDescriptors_(openAtOnce(fileSystem_.descriptorLimit())) {}

std::optional<OpenCandidate> CandidateReader::open(const File& file) {
    if (!control_.mayGoOn()) {
        return std::nullopt;
    }
    Result<Descriptor> descriptor =
        openWithRetry(fileSystem_, control_, [&] { return openOnce(file); });
    if (!descriptor) {
        return failed(file, descriptor.error());
    }
    const Result<FileAttributes> attributes = attributesNow(file, *descriptor);
    if (!attributes) {
        return failed(file, attributes.error());
    }
    if (attributes->type != EntryType::regular) {
        logChange(file);
        return std::nullopt;
    }
    if (attributes->size == file.fileSize() && file.fileModificationDate() &&
        attributes->modified != file.fileModificationDate()) {
        examineVolume(file, *descriptor);
    }
    doubtUnlessCollected(file, *attributes);
    OpenCandidate candidate{&file, std::move(*descriptor), stampOf(*attributes),
                            onlyReaderOf(attributes->identity.device)};
    if (isUnsteady(attributes->identity.device)) {
        candidate.stamp.identity.inode = 0;
        doubt(file);
    }
    std::byte beyond{};
    if (candidate.stamp.size == 0 && readSome(candidate, 0, {&beyond, 1}, 1) != 0) {
        // Some file systems report size 0 for files whose content they generate when read.
        doubt(file);
        return std::nullopt;
    }
    return candidate;
}

Result<Descriptor> CandidateReader::openOnce(const File& file) {
    const IoWatch::Call call(watch_, file);
    if (const Descriptor* const folder = folders_.of(*file.directory())) {
        // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): null-terminated.
        Result<Descriptor> opened = fileSystem_.openFileAt(*folder, file.fileName().data());
        if (opened || !isOfAnOldFolder(opened.error())) {
            return opened;
        }
    }
    thread_local std::string path;
    path.clear();
    file.appendFilePath(path);
    return fileSystem_.openFile(path);
}

Result<FileAttributes> CandidateReader::attributesNow(const File& file,
                                                      const Descriptor& descriptor) {
    const IoWatch::Call call(watch_, file);
    return fileSystem_.attributesOf(descriptor);
}

/// After a stop the error may come from the stop and is not logged.
std::nullopt_t CandidateReader::failed(const File& file, SystemError error) {
    doubt(file);
    if (!control_.stop()) {
        unreadable_.addFile(file, error);
    }
    return std::nullopt;
}

bool CandidateReader::read(const OpenCandidate& candidate, std::uint64_t offset,
                           std::span<std::byte> into) {
    if (into.empty()) {
        return true;
    }
    const std::optional<std::size_t> got = readSome(candidate, offset, into, into.size());
    if (got && *got != into.size()) {
        logChange(*candidate.file);
    }
    return got == into.size();
}

bool CandidateReader::readWhole(const OpenCandidate& candidate, std::span<std::byte> into) {
    const auto size = static_cast<std::size_t>(candidate.stamp.size);
    if (size == 0) {
        return true;
    }
    const std::optional<std::size_t> got = readSome(candidate, 0, into, size);
    if (got && *got != size) {
        logChange(*candidate.file);
    }
    return got == size;
}

void CandidateReader::readAhead(const OpenCandidate& candidate, std::uint64_t offset,
                                std::uint64_t bytes) {
    std::unique_lock<std::mutex> lock;
    if (candidate.onlyReader != nullptr) {
        lock = lockOf(*candidate.onlyReader);
    }
    const IoWatch::Call call(watch_, *candidate.file);
    for (const std::uint64_t end = offset + bytes; offset < end && !control_.stop();
         offset += bytesARequest) {
        fileSystem_.readAhead(candidate.descriptor, offset, std::min(bytesARequest, end - offset));
    }
}

bool CandidateReader::isUnchanged(const OpenCandidate& candidate) {
    const Result<FileAttributes> now = attributesNow(*candidate.file, candidate.descriptor);
    if (!now) {
        failed(*candidate.file, now.error());
    } else if (now->linkCount == 0) {
        logUnnamed(*candidate.file);
    } else if (stampOf(*now) == candidate.stamp ||
               isExcused(candidate.stamp, stampOf(*now), candidate)) {
        return true;
    } else {
        logChange(*candidate.file);
    }
    return false;
}

bool CandidateReader::isAsBefore(const FileStamp& before, const OpenCandidate& again) {
    const bool isSame = again.stamp == before || isExcused(before, again.stamp, again);
    if (!isSame) {
        logChange(*again.file);
    }
    return isSame;
}

/// Whether the stamps of one file differ only because its volume is unsteady.
bool CandidateReader::isExcused(const FileStamp& before, const FileStamp& now,
                                const OpenCandidate& candidate) {
    return now.size == before.size &&
           (isUnsteady(now.identity.device) ||
            unsteadyVolumes_.addIfRenumbered(attributesIn(before), attributesIn(now)) ||
            examineVolume(*candidate.file, candidate.descriptor));
}

/// Returns whether the volume of an open file is unsteady.
bool CandidateReader::examineVolume(const File& file, const Descriptor& descriptor) {
    const IoWatch::Call call(watch_, file);
    return unsteadyVolumes_.examine(fileSystem_, descriptor);
}

void CandidateReader::checkVersion(const File& file) {
    if (file.version() == nullptr) {
        return;
    }
    const IoWatch::Call call(watch_, file);
    const Result<FileAttributes> now = fileSystem_.attributesAtPath(file.filePath());
    if (now) {
        doubtUnlessCollected(file, *now);
    } else {
        doubt(file);
    }
}

void CandidateReader::logChange(const File& file) {
    doubt(file);
    if (!control_.stop()) {
        unreadable_.addChanged(file);
    }
}

/// For an open file without a name: it was removed, or another one is in its place.
void CandidateReader::logUnnamed(const File& file) {
    const IoWatch::Call call(watch_, file);
    const Result<FileAttributes> now = fileSystem_.attributesAtPath(file.filePath());
    if (now) {
        logChange(file);
    } else {
        failed(file, now.error());
    }
}

/// Returns the number of bytes read; nullopt if the file cannot be read or the scan was stopped.
std::optional<std::size_t> CandidateReader::readSome(const OpenCandidate& candidate,
                                                     std::uint64_t offset,
                                                     std::span<std::byte> into,
                                                     std::size_t enough) {
    if (!control_.mayGoOn()) {
        return std::nullopt;
    }
    const Result<std::size_t> got = readThroughDevice(candidate, offset, into, enough);
    if (!got) {
        return failed(*candidate.file, got.error());
    }
    bytesRead_.fetch_add(*got, std::memory_order_relaxed);
    return *got;
}

Result<std::size_t> CandidateReader::readThroughDevice(const OpenCandidate& candidate,
                                                       std::uint64_t offset,
                                                       std::span<std::byte> into,
                                                       std::size_t enough) {
    if (candidate.onlyReader != nullptr) {
        return readAlone(candidate, offset, into, enough);
    }
    const IoWatch::Call call(watch_, *candidate.file);
    return fileSystem_.readAtLeast(candidate.descriptor, offset, into, enough);
}

/// Reads cached bytes without the mutex; the rest waits for the device.
Result<std::size_t> CandidateReader::readAlone(const OpenCandidate& candidate, std::uint64_t offset,
                                               std::span<std::byte> into, std::size_t enough) {
    const Result<std::size_t> cached = fileSystem_.readCachedAt(candidate.descriptor, offset, into);
    const std::size_t known = cached ? *cached : 0;
    if (known >= enough) {
        return known;
    }
    std::unique_lock lock = lockOf(*candidate.onlyReader);
    while (control_.pause()) {
        lock.unlock();
        control_.waitWhilePaused();
        lock.lock();
    }
    if (control_.stop()) {
        // Without this check each of many waiting threads would read once more.
        return SystemError{EINTR};
    }
    const IoWatch::Call call(watch_, *candidate.file);
    Result<std::size_t> rest = fileSystem_.readAtLeast(candidate.descriptor, offset + known,
                                                       into.subspan(known), enough - known);
    if (!rest) {
        return rest;
    }
    return known + *rest;
}

std::mutex* CandidateReader::onlyReaderOf(std::uint64_t device) {
    if (freelyRead_.load(std::memory_order_relaxed) == device) {
        return nullptr;
    }
    const std::lock_guard lock(devicesMutex_);
    auto known = devices_.find(device);
    if (known == devices_.end()) {
        const std::optional<std::uint64_t> disk = fileSystem_.rotationalDiskOf(device);
        known = devices_.emplace(device, disk ? &disks_[*disk] : nullptr).first;
    }
    if (known->second == nullptr) {
        freelyRead_.store(device, std::memory_order_relaxed);
    }
    return known->second;
}

}  // namespace tarvin
