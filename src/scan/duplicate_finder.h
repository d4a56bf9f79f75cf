#pragma once

#include "model/file_store.h"
#include "model/modal.h"
#include "scan/buffer_pool.h"
#include "scan/candidate_reader.h"
#include "scan/content_partition.h"
#include "scan/progress_gate.h"
#include "scan/scan_observer.h"
#include "scan/scan_services.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace tarvin {

/// The second phase of a scan: finds the files of one category that are equal byte for byte and
/// builds the category's result.
///
/// One object serves all categories of a scan; findDuplicates() may be called on several threads at
/// once, for different lists. The result depends on the order of the list alone, not on the number
/// of workers or on what they finish first.
class DuplicateFinder final {
 public:
    /// All references must outlive the finder and its tasks.
    DuplicateFinder(const ScanServices& services, ScanObserver& observer, ProgressGate& gate,
                    std::atomic<std::uint64_t>& processed);
    DuplicateFinder(const DuplicateFinder&) = delete;
    DuplicateFinder& operator=(const DuplicateFinder&) = delete;
    /// Waits for the workers that are inside a comparison, unless their pool was abandoned.
    ~DuplicateFinder();

    /// The sets among `list`, whose files are owned by `store`. Files keep their order: the first
    /// of a set is the one that stands first in the list, and sets and extensions come in the order
    /// of their first files. A file that cannot be read is in no set.
    ///
    /// `processed` counts a file when it is decided whether it has equals, and the list is empty in
    /// the end. After a stop the answer has every set that was proven until then, in order, and the
    /// list the files that are neither in a set nor were passed by then. A stop is answered within
    /// half a second, also if a worker is stuck in a call; whatever that worker has in hand lives
    /// on with this object.
    [[nodiscard]] std::shared_ptr<Modal> findDuplicates(std::vector<File*>& list, FileStore& store);

    /// The set of two or more equal files, the first of which stays when all are marked.
    [[nodiscard]] static std::shared_ptr<Set> setOfFileDetailsFrom(
        const std::vector<std::shared_ptr<File>>& group);

    /// Bytes read so far, by all categories together.
    [[nodiscard]] std::uint64_t bytesRead() const { return reader_.bytesRead(); }
    /// Bytes of memory that were taken for reading into, by all categories together: the most that
    /// was ever used at once. Never over 48 MiB.
    [[nodiscard]] std::size_t bufferBytes() { return buffers_.bytesTaken(); }

 private:
    class CategoryComparison;

    /// Tells of a file unless another was told of a moment ago; whether it did.
    bool updateProgressBarWith(const File& file);
    /// Tells of a file however short a time ago another was told of.
    void tellOf(const File& file);
    [[nodiscard]] CategoryComparison& keep(std::unique_ptr<CategoryComparison> comparison);
    void letGoOf(const CategoryComparison& comparison);

    WorkerPool& pool_;
    ScanControl& control_;
    ScanObserver& observer_;
    ProgressGate& gate_;
    std::atomic<std::uint64_t>& processed_;
    CandidateReader reader_;
    BufferPool buffers_;
    ContentPartition partition_;
    std::mutex mutex_;
    // Those under way, and those that workers have not left yet. Guarded by mutex_.
    std::vector<std::unique_ptr<CategoryComparison>> comparisons_;
};

/// Puts the set of `group` into `modal`, under the extension of its first file, and brings the
/// totals up to date.
void fileSetUnderExtension(Modal& modal, const std::vector<std::shared_ptr<File>>& group);

}  // namespace tarvin
