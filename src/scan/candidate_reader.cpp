#include "scan/candidate_reader.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <utility>

namespace tarvin {

namespace {

// Left to the rest of the process: standard streams, libraries, folders being listed.
constexpr std::size_t descriptorsForOthers = 32;
constexpr std::size_t fewestDescriptors = 2;
constexpr std::size_t mostDescriptors = 512;
// Somebody else in the process may hold what was counted on; a file is not given up for that.
constexpr int patienceTries = 400;
constexpr std::chrono::milliseconds patienceStep{5};

/// Half of what can be spared: one half is for visits, the other for files kept open.
std::size_t openAtOnce(std::size_t limit) {
    const std::size_t spare = limit > descriptorsForOthers ? limit - descriptorsForOthers : 0;
    return std::clamp(spare / 2, fewestDescriptors, mostDescriptors);
}

bool isShortage(SystemError error) {
    return error.code == EMFILE || error.code == ENFILE;
}

}  // namespace

CandidateReader::CandidateReader(FileSystem& fileSystem, const ScanControl& control)
    : fileSystem_(fileSystem),
      control_(control),
      descriptors_(openAtOnce(fileSystem.descriptorLimit())),
      keptDescriptors_(openAtOnce(fileSystem.descriptorLimit())) {}

std::optional<OpenCandidate> CandidateReader::open(const File& file) {
    if (!control_.mayGoOn()) {
        return std::nullopt;
    }
    thread_local std::string path;
    path.clear();
    file.appendFilePath(path);
    Result<Descriptor> descriptor = openPatiently(path);
    if (!descriptor) {
        return std::nullopt;
    }
    const Result<FileAttributes> attributes = fileSystem_.attributesOf(*descriptor);
    if (!attributes || attributes->type != EntryType::regular) {
        return std::nullopt;
    }
    return OpenCandidate{std::move(*descriptor), *attributes,
                         onlyReaderOf(attributes->identity.device)};
}

bool CandidateReader::read(const OpenCandidate& candidate, std::uint64_t offset,
                           std::span<std::byte> into) {
    if (into.empty()) {
        return true;
    }
    if (!control_.mayGoOn()) {
        return false;
    }
    const Result<std::size_t> got = candidate.onlyReader == nullptr
                                        ? fileSystem_.readAt(candidate.descriptor, offset, into)
                                        : readAlone(candidate, offset, into);
    if (!got) {
        return false;
    }
    bytesRead_.fetch_add(*got, std::memory_order_relaxed);
    return *got == into.size();
}

bool CandidateReader::isUnchanged(const OpenCandidate& candidate) {
    const Result<FileAttributes> now = fileSystem_.attributesOf(candidate.descriptor);
    return now && now->size == candidate.attributes.size &&
           now->modified == candidate.attributes.modified;
}

/// What is in memory already is read beside other readers; the rest waits for the device.
Result<std::size_t> CandidateReader::readAlone(const OpenCandidate& candidate, std::uint64_t offset,
                                               std::span<std::byte> into) {
    const Result<std::size_t> cached = fileSystem_.readCachedAt(candidate.descriptor, offset, into);
    const std::size_t known = cached ? *cached : 0;
    if (known == into.size()) {
        return known;
    }
    const std::lock_guard lock(*candidate.onlyReader);
    Result<std::size_t> rest =
        fileSystem_.readAt(candidate.descriptor, offset + known, into.subspan(known));
    if (!rest) {
        return rest;
    }
    return known + *rest;
}

Result<Descriptor> CandidateReader::openPatiently(const std::string& path) {
    Result<Descriptor> descriptor = fileSystem_.openFile(path);
    for (int tries = 0; !descriptor && isShortage(descriptor.error()) && tries < patienceTries;
         ++tries) {
        if (!control_.mayGoOn()) {
            break;
        }
        std::this_thread::sleep_for(patienceStep);
        descriptor = fileSystem_.openFile(path);
    }
    return descriptor;
}

std::mutex* CandidateReader::onlyReaderOf(std::uint64_t device) {
    const std::lock_guard lock(devicesMutex_);
    const auto known = devices_.find(device);
    if (known != devices_.end()) {
        return known->second.get();
    }
    auto gate = fileSystem_.isRotational(device) ? std::make_unique<std::mutex>() : nullptr;
    return devices_.emplace(device, std::move(gate)).first->second.get();
}

}  // namespace tarvin
