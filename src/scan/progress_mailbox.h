#pragma once

#include "scan/scan_observer.h"

#include <cstdint>
#include <mutex>
#include <string>

namespace tarvin {

/// The progress of a scan, as a screen shows it.
struct Progress {
    bool comparing = false;       ///< false while files are collected
    std::string path;             ///< the current file; empty before the first; native bytes
    bool waiting = false;         ///< `path` is a folder or file whose device does not respond
    std::uint64_t total = 0;      ///< files to compare; 0 while they are collected
    std::uint64_t processed = 0;  ///< files compared
    std::uint64_t bytesRead = 0;
    std::string elapsed = "Elapsed Time: 00:00:00";
};

/// Keeps the latest progress of a scan, so that the scan never waits for a screen. Any thread.
class ProgressMailbox final : public ScanObserver {
 public:
    void collecting(const std::string& path) override;
    void comparisonStarted(std::uint64_t total) override;
    void processing(const std::string& path, std::uint64_t processed) override;
    void waitingFor(const std::string& path) override;
    void elapsed(const std::string& text) override;

    /// Resets the progress before another scan.
    void clear();

    /// The latest progress. The scan does not report the bytes it has read: they are 0.
    [[nodiscard]] Progress latest() const;

    /// The same without blocking: leaves `progress` unchanged while the scan is reporting.
    void tryLatest(Progress& progress) const;

 private:
    mutable std::mutex mutex_;
    Progress latest_;  // guarded by mutex_
};

}  // namespace tarvin
