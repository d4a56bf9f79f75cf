#pragma once

#include "scan/scan_observer.h"

#include <cstdint>
#include <mutex>
#include <string>

namespace tarvin {

/// How far a scan is, as a screen needs to know it.
struct Progress {
    bool comparing = false;       ///< false while files are collected
    std::string path;             ///< the file come to last; empty before the first; native bytes
    bool waiting = false;         ///< `path` is a folder or file whose device does not answer
    std::uint64_t total = 0;      ///< files to compare; 0 while they are collected
    std::uint64_t processed = 0;  ///< files compared
    std::uint64_t bytesRead = 0;
    std::string elapsed = "Elapsed Time: 00:00:00";
};

/// Keeps the newest of what a scan tells, so that the scan never waits for a screen. Any thread.
class ProgressMailbox final : public ScanObserver {
 public:
    void collecting(const std::string& path) override;
    void comparisonStarted(std::uint64_t total) override;
    void processing(const std::string& path, std::uint64_t processed) override;
    void waitingFor(const std::string& path) override;
    void elapsed(const std::string& text) override;

    /// Forgets what was told, before another scan.
    void clear();

    /// What has been told. The scan does not tell the bytes it has read: they are 0.
    [[nodiscard]] Progress latest() const;

    /// The same, for whoever must not wait: leaves `progress` as it is if the scan is telling
    /// something at the very moment.
    void tryLatest(Progress& progress) const;

 private:
    mutable std::mutex mutex_;
    Progress latest_;  // guarded by mutex_
};

}  // namespace tarvin
