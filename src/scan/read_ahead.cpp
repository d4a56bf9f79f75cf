#include "scan/read_ahead.h"

#include "scan/inner_wait.h"

#include <algorithm>
#include <new>
#include <string>
#include <utility>

namespace tarvin {

namespace {

// If these are in the page cache, the others of a sweep are taken to be, too.
constexpr std::size_t samples = 16;
// Files of up to these bytes are read whole if at most so many have their size.
constexpr std::uint64_t pictureBytes = 8 * 1024 * 1024;
constexpr std::size_t maxLikelyCopies = 4;
constexpr std::chrono::milliseconds pollForStop{20};

}  // namespace

std::uint64_t ReadAhead::bytesAFile(std::uint64_t fileSize, std::size_t fileCount) {
    const bool isWhole = fileSize <= pictureBytes && areLikelyCopies(fileCount);
    return isWhole ? fileSize : std::min(fileSize, beginningBytes);
}

std::uint64_t ReadAhead::bytesOfEnd(std::uint64_t fileSize, std::size_t fileCount) {
    return areLikelyCopies(fileCount)
               ? std::min(ComparisonOrder::edgeBytes, fileSize - bytesAFile(fileSize, fileCount))
               : 0;
}

bool ReadAhead::areLikelyCopies(std::size_t fileCount) {
    return fileCount <= maxLikelyCopies;
}

bool ReadAhead::isUsefulIn(const Directory& folder) {
    return rotationalDiskOf(folder).has_value();
}

/// The disk of the folder's files; nullopt if it is not rotational or not known.
std::optional<std::uint64_t> ReadAhead::rotationalDiskOf(const Directory& folder) {
    if (folder.identity.inode == 0) {
        return std::nullopt;
    }
    const std::uint64_t device = folder.identity.device;
    const std::lock_guard lock(mutex_);
    auto known = disks_.find(device);
    if (known == disks_.end()) {
        known = disks_.emplace(device, services_.fileSystem.rotationalDiskOf(device)).first;
    }
    return known->second;
}

void ReadAhead::expect(std::size_t comparisons) {
    const std::lock_guard lock(mutex_);
    expected_ += comparisons;
}

void ReadAhead::expectOneLess() {
    const std::lock_guard lock(mutex_);
    expected_ -= std::min<std::size_t>(expected_, 1);
    changed_.notify_all();
}

void ReadAhead::request(std::vector<Wanted> files, std::function<void()> done) {
    const std::lock_guard lock(mutex_);
    requests_.push_back({std::move(files), std::move(done)});
    ++requested_;
    changed_.notify_all();
}

void ReadAhead::sweep() {
    std::unique_lock lock(mutex_);
    if (isSweeping_) {
        return;
    }
    isSweeping_ = true;
    waitForExpected(lock);
    while (!requests_.empty()) {
        const std::list<Request> taken = takeForOneSweep();
        lock.unlock();
        sweepOnce(taken);
        for (const Request& request : taken) {
            request.done();
        }
        lock.lock();
    }
    isSweeping_ = false;
}

/// Called and left with the lock held.
void ReadAhead::waitForExpected(std::unique_lock<std::mutex>& lock) {
    const InnerWait wait;
    const auto end = std::chrono::steady_clock::now() + patience;
    while (requested_ < expected_ && !services_.control.stop() &&
           std::chrono::steady_clock::now() < end) {
        changed_.wait_for(lock, pollForStop);
    }
    expected_ = 0;
}

/// The oldest requests. Called with the lock held. Needs no memory: each must be told when it is
/// done.
std::list<ReadAhead::Request> ReadAhead::takeForOneSweep() {
    std::list<Request> taken;
    std::uint64_t bytes = 0;
    while (!requests_.empty() && bytes < mostBytesASweep) {
        for (const Wanted& wanted : requests_.front().files) {
            bytes += wanted.bytes;
        }
        taken.splice(taken.end(), requests_, requests_.begin());
    }
    return taken;
}

/// If memory runs out, the files are not read ahead.
void ReadAhead::sweepOnce(const std::list<Request>& requests) {
    try {
        std::unordered_map<std::uint64_t, std::vector<Wanted>> byDisk;
        for (const Request& request : requests) {
            std::unordered_map<std::uint64_t, std::vector<Wanted>> ofRequest;
            for (const Wanted& wanted : request.files) {
                if (const auto disk = rotationalDiskOf(*wanted.file->directory())) {
                    ofRequest[*disk].push_back(wanted);
                }
            }
            for (const auto& [disk, files] : ofRequest) {
                if (!areCached(files)) {
                    std::vector<Wanted>& all = byDisk[disk];
                    all.insert(all.end(), files.begin(), files.end());
                }
            }
        }
        std::vector<std::vector<Wanted>> disks;
        disks.reserve(byDisk.size());
        for (auto& [disk, files] : byDisk) {
            disks.push_back(std::move(files));
        }
        services_.pool.forEach(disks.size(), [&](std::size_t number) { sweepDisk(disks[number]); });
    } catch (const std::bad_alloc&) {
        services_.control.stopForLackOfMemory();
    }
}

void ReadAhead::sweepDisk(std::span<const Wanted> files) {
    for (const Located& located : locate(files)) {
        if (!services_.control.mayGoOn()) {
            return;
        }
        readAhead(located.wanted);
    }
}

bool ReadAhead::areCached(std::span<const Wanted> files) {
    const std::size_t step = std::max<std::size_t>(1, files.size() / samples);
    for (std::size_t number = 0; number < files.size(); number += step) {
        const File& file = *files[number].file;
        const Result<Descriptor> opened = open(file);
        if (opened) {
            const IoWatch::Call call(services_.watch, file);
            if (!services_.fileSystem.isCached(*opened, files[number].offset)) {
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
            if (const auto place = services_.fileSystem.placeOnDevice(*opened, wanted.offset)) {
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

void ReadAhead::readAhead(const Wanted& wanted) {
    const Result<Descriptor> opened = open(*wanted.file);
    if (opened) {
        const IoWatch::Call call(services_.watch, *wanted.file);
        services_.fileSystem.readAhead(*opened, wanted.offset, wanted.bytes);
    }
}

}  // namespace tarvin
