#pragma once

#include <cstdint>
#include <string>

namespace tarvin {

/// What a scan tells of its progress. Called on the scan's own threads, several at once; an
/// implementation must be quick and must not wait for anything that waits for the scan. Paths are
/// native bytes. Calls that name a file come a few dozen times a second, not once per file.
class ScanObserver {
 public:
    virtual ~ScanObserver() = default;

    /// Collection begins: how much there is, is not known.
    virtual void collectionStarted() {}
    /// The file that the collection has come to.
    virtual void collecting(const std::string& path) { static_cast<void>(path); }
    /// The collection waits, or goes on again.
    virtual void collectionPaused(bool paused) { static_cast<void>(paused); }
    /// No file at all was collected; there will be no comparison.
    virtual void nothingCollected() {}
    /// Collection is over, whatever came of it; the list of locations is to be emptied.
    virtual void collectionFinished() {}

    /// Comparison of `total` files begins.
    virtual void comparisonStarted(std::uint64_t total) { static_cast<void>(total); }
    /// The file that the comparison has come to and how many files are accounted for so far. Not
    /// called while the scan is paused.
    virtual void processing(const std::string& path, std::uint64_t processed) {
        static_cast<void>(path);
        static_cast<void>(processed);
    }
    /// The result is complete, or as complete as a stop left it.
    virtual void comparisonFinished(std::uint64_t processed) { static_cast<void>(processed); }

    /// A call on this folder or file has not returned for seconds: its device or server may be
    /// gone. About once a second for as long as that lasts; not while the scan is paused.
    virtual void waitingFor(const std::string& path) { static_cast<void>(path); }

    /// The elapsed-time text, about once a second.
    virtual void elapsed(const std::string& text) { static_cast<void>(text); }
};

}  // namespace tarvin
