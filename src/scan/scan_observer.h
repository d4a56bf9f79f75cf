#pragma once

#include "scan/memory_report.h"

#include <cstdint>
#include <string>

namespace tarvin {

/// Receives the progress of a scan. Called on the threads of the scan, several at once; an
/// implementation must return quickly and must not wait for anything that waits for the scan. Paths
/// are native bytes. Files are reported a few dozen times a second, not each one.
class ScanObserver {
 public:
    virtual ~ScanObserver() = default;

    /// The collection begins. Its extent is unknown.
    virtual void collectionStarted() {}
    /// The current file of the collection.
    virtual void collecting(const std::string& /*path*/) {}
    /// The collection has been paused or resumed.
    virtual void collectionPaused(bool /*paused*/) {}
    /// No file was collected; no comparison follows.
    virtual void nothingCollected() {}
    /// The collection is over, with or without files. The list of locations is to be emptied.
    virtual void collectionFinished() {}

    /// The comparison of `total` files begins.
    virtual void comparisonStarted(std::uint64_t /*total*/) {}
    /// The current file of the comparison and the number of files decided so far. Not called while
    /// the scan is paused.
    virtual void processing(const std::string& /*path*/, std::uint64_t /*processed*/) {}
    /// The result is complete, or as complete as a stop left it.
    virtual void comparisonFinished(std::uint64_t /*processed*/) {}
    /// The scan has stored what it remembers, or could not. After comparisonFinished(), or shortly
    /// before; only from scans with a memory.
    virtual void memoryStored(const MemoryReport& /*report*/) {}

    /// A call on this folder or file has not returned for seconds: its device or server may be
    /// gone. Called about once a second while that lasts, except while the scan is paused.
    virtual void waitingFor(const std::string& /*path*/) {}

    /// The elapsed-time text, about once a second.
    virtual void elapsed(const std::string& /*text*/) {}
};

}  // namespace tarvin
