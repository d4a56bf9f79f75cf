#include "scan/read_ahead.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace tarvin {

namespace {

// If these are in the page cache, the others of a sweep are taken to be, too.
constexpr std::size_t samples = 16;

}  // namespace

bool ReadAhead::isUsefulIn(const Directory& folder) {
    return folder.identity.inode != 0 && diskOf(folder.identity.device) != nullptr;
}

void ReadAhead::sweep(std::span<File* const> files) {
    std::unordered_map<std::uint64_t, std::vector<const File*>> byDevice;
    for (const File* file : files) {
        if (isUsefulIn(*file->directory())) {
            byDevice[file->directory()->identity.device].push_back(file);
        }
    }
    std::vector<std::pair<std::shared_ptr<Disk>, std::vector<const File*>>> disks;
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

void ReadAhead::sweepDisk(Disk& disk, std::span<const File* const> files) {
    const std::lock_guard lock(disk.sweeping);
    if (areCached(files)) {
        return;
    }
    for (const Located& located : locate(files)) {
        if (!services_.control.mayGoOn()) {
            return;
        }
        request(*located.file);
    }
}

bool ReadAhead::areCached(std::span<const File* const> files) {
    const std::size_t step = std::max<std::size_t>(1, files.size() / samples);
    for (std::size_t number = 0; number < files.size(); number += step) {
        const Result<Descriptor> opened = open(*files[number]);
        std::array<std::byte, 1> byte{};
        if (opened) {
            const IoWatch::Call call(services_.watch, *files[number]);
            const Result<std::size_t> cached = services_.fileSystem.readCachedAt(*opened, 0, byte);
            if (!cached || *cached == 0) {
                return false;
            }
        }
    }
    return true;
}

/// The files that can be located, in the order in which they lie on the disk.
std::vector<ReadAhead::Located> ReadAhead::locate(std::span<const File* const> files) {
    std::vector<Located> located;
    located.reserve(files.size());
    for (const File* file : files) {
        if (!services_.control.mayGoOn()) {
            break;
        }
        const Result<Descriptor> opened = open(*file);
        if (opened) {
            const IoWatch::Call call(services_.watch, *file);
            if (const auto place = services_.fileSystem.placeOnDevice(*opened)) {
                located.push_back({*place, file});
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

void ReadAhead::request(const File& file) {
    const Result<Descriptor> opened = open(file);
    if (opened) {
        const IoWatch::Call call(services_.watch, file);
        services_.fileSystem.readAhead(*opened, std::min(file.fileSize(), bytesAFile));
    }
}

}  // namespace tarvin
