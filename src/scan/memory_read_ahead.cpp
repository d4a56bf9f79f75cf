#include "scan/memory_read_ahead.h"

#include "store/scan_memory.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <utility>

namespace tarvin {

namespace {

// Bytes that are requested before pause and stop are checked again. A disk reads them in 0.03 s.
constexpr std::uint64_t bytesAStep = std::uint64_t{4} << 20U;
// Of SQLite.
constexpr std::uint64_t pageBytes = 4096;
// How often a wait checks for a stop.
constexpr std::chrono::milliseconds stopPollInterval{10};

Directory rootAt(const std::string& path) {
    const auto length = static_cast<std::uint32_t>(path.size());
    return {nullptr, path.c_str(), length, length, false, {}};
}

}  // namespace

MemoryReadAhead::MemoryReadAhead(std::string folder, std::uint64_t most)
    : folder_(std::move(folder)), place_(rootAt(folder_)), limit_(most) {}

void MemoryReadAhead::begin(const ScanServices& services) {
    auto end = std::make_shared<std::promise<void>>();
    ended_ = end->get_future();
    services.pool.submit([this, services, end = std::move(end)] {
        read(services);
        end->set_value();
    });
}

void MemoryReadAhead::expect(std::uint64_t files) {
    limit_ = std::min(limit_.load(), std::min(files, mostBytes) * pageBytes);
}

void MemoryReadAhead::wait(const ScanServices& services) {
    if (!ended_.valid()) {
        return;
    }
    std::chrono::milliseconds patience{0};
    while (ended_.wait_for(patience) != std::future_status::ready && !services.control.stop()) {
        patience = services.pool.runOneHere() ? std::chrono::milliseconds{0} : stopPollInterval;
    }
}

void MemoryReadAhead::read(const ScanServices& services) {
    std::optional<Descriptor> file;
    std::uint64_t size = 0;
    {
        const IoWatch::Call call(services.watch, place_);
        file = open(services.fileSystem, size);
    }
    for (std::uint64_t at = 0; file && services.control.mayGoOn(); at += bytesAStep) {
        const std::uint64_t end = std::min(size, limit_.load());
        if (at >= end) {
            return;
        }
        const IoWatch::Call call(services.watch, place_);
        services.fileSystem.readAhead(*file, at, std::min(bytesAStep, end - at));
    }
}

/// nullopt if there is no memory to read.
std::optional<Descriptor> MemoryReadAhead::open(FileSystem& fileSystem, std::uint64_t& size) const {
    Result<Descriptor> file = fileSystem.openFile(ScanMemory::pathIn(folder_));
    if (!file) {
        return std::nullopt;
    }
    const Result<FileAttributes> attributes = fileSystem.attributesOf(*file);
    if (!attributes || attributes->type != EntryType::regular) {
        return std::nullopt;
    }
    size = attributes->size;
    return std::move(*file);
}

}  // namespace tarvin
