#include "scan/read_ahead.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace tarvin {

namespace {

// If these are in the page cache, the others of a sweep are taken to be, too.
constexpr std::size_t samples = 16;
constexpr std::uint64_t smallBytes = 256 * 1024;
// Files of up to these bytes are read whole if at most so many have their size.
constexpr std::uint64_t pictureBytes = 8 * 1024 * 1024;
constexpr std::size_t maxLikelyCopies = 4;

}  // namespace

std::uint64_t ReadAhead::bytesAFile(std::uint64_t fileSize, std::size_t fileCount) {
    const bool isWhole = fileSize <= pictureBytes && fileCount <= maxLikelyCopies;
    return isWhole ? fileSize : std::min(fileSize, smallBytes);
}

bool ReadAhead::isUsefulIn(const Directory& folder) {
    return folder.identity.inode != 0 && diskOf(folder.identity.device) != nullptr;
}

void ReadAhead::sweep(std::span<const Wanted> files) {
    std::unordered_map<std::uint64_t, std::vector<Wanted>> byDevice;
    for (const Wanted& wanted : files) {
        const Directory& folder = *wanted.file->directory();
        if (isUsefulIn(folder)) {
            byDevice[folder.identity.device].push_back(wanted);
        }
    }
    std::vector<std::pair<std::shared_ptr<Disk>, std::vector<Wanted>>> disks;
    disks.reserve(byDevice.size());
    for (auto& [device, ofDevice] : byDevice) {
        disks.emplace_back(diskOf(device), std::move(ofDevice));
    }
    services_.pool.forEach(disks.size(), [&](std::size_t number) {
        sweepDisk(*disks[number].first, disks[number].second);
    });
}

std::shared_ptr<ReadAhead::Disk> ReadAhead::diskOf(std::uint64_t device) {
    const std::lock_guard lock(mutex_);
    const auto known = disks_.find(device);
    if (known != disks_.end()) {
        return known->second;
    }
    auto disk = services_.fileSystem.isRotational(device) ? std::make_shared<Disk>() : nullptr;
    return disks_.emplace(device, std::move(disk)).first->second;
}

void ReadAhead::sweepDisk(Disk& disk, std::span<const Wanted> files) {
    const std::lock_guard lock(disk.sweeping);
    if (areCached(files)) {
        return;
    }
    for (const Located& located : locate(files)) {
        if (!services_.control.mayGoOn()) {
            return;
        }
        request(located.wanted);
    }
}

bool ReadAhead::areCached(std::span<const Wanted> files) {
    const std::size_t step = std::max<std::size_t>(1, files.size() / samples);
    for (std::size_t number = 0; number < files.size(); number += step) {
        const File& file = *files[number].file;
        const Result<Descriptor> opened = open(file);
        std::array<std::byte, 1> byte{};
        if (opened) {
            const IoWatch::Call call(services_.watch, file);
            const Result<std::size_t> cached = services_.fileSystem.readCachedAt(*opened, 0, byte);
            if (!cached || *cached == 0) {
                return false;
            }
        }
    }
    return true;
}

/// The files that can be located, in the order in which they lie on the disk.
std::vector<ReadAhead::Located> ReadAhead::locate(std::span<const Wanted> files) {
    std::vector<Located> located;
    located.reserve(files.size());
    for (const Wanted& wanted : files) {
        if (!services_.control.mayGoOn()) {
            break;
        }
        const Result<Descriptor> opened = open(*wanted.file);
        if (opened) {
            const IoWatch::Call call(services_.watch, *wanted.file);
            if (const auto place = services_.fileSystem.placeOnDevice(*opened)) {
                located.push_back({*place, wanted});
            }
        }
    }
    std::sort(located.begin(), located.end(),
              [](const Located& one, const Located& other) { return one.place < other.place; });
    return located;
}

Result<Descriptor> ReadAhead::open(const File& file) {
    thread_local std::string path;
    path.clear();
    file.appendFilePath(path);
    const IoWatch::Call call(services_.watch, file);
    return services_.fileSystem.openFile(path);
}

void ReadAhead::request(const Wanted& wanted) {
    const Result<Descriptor> opened = open(*wanted.file);
    if (opened) {
        const IoWatch::Call call(services_.watch, *wanted.file);
        services_.fileSystem.readAhead(*opened, 0, wanted.bytes);
    }
}

}  // namespace tarvin
