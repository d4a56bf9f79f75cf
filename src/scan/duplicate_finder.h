#pragma once

#include "model/file_store.h"
#include "model/modal.h"
#include "scan/buffer_pool.h"
#include "scan/candidate_reader.h"
#include "scan/category_comparison.h"
#include "scan/compared_bytes.h"
#include "scan/content_partition.h"
#include "scan/progress_gate.h"
#include "scan/read_ahead.h"
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
/// once, for different lists. The result depends only on the order of the list, not on the number
/// of workers or the order in which they finish.
class DuplicateFinder final {
 public:
    /// All references must outlive the finder and its tasks.
    DuplicateFinder(const ScanServices& services, ScanObserver& observer, ProgressGate& gate,
                    std::atomic<std::uint64_t>& processed, ComparedBytes& bytes);
    DuplicateFinder(const DuplicateFinder&) = delete;
    DuplicateFinder& operator=(const DuplicateFinder&) = delete;
    /// Waits for the workers that are inside a comparison, unless their pool was abandoned.
    ~DuplicateFinder();

    /// Returns the sets among `list`, whose files are owned by `store`. Files keep their order: the
    /// first file of a set is the first one in the list, and sets and extensions follow
    /// the order of their first files. A file that cannot be read is in no set.
    ///
    /// `processed` counts a file when it is decided whether it has equals, `bytes` while it is
    /// read; the list is empty at the end. After a stop the result has every set confirmed so far,
    /// in order, and the list keeps the files that are in no set and had not been reached. Returns
    /// within half a second after a stop, even if a worker is stuck in a call; this object keeps
    /// the data of that worker.
    [[nodiscard]] std::shared_ptr<Modal> findDuplicates(std::vector<File*>& list, FileStore& store);

    /// findDuplicates() will be called for so many lists at about the same time. Only the time
    /// depends on it.
    void expectLists(std::size_t lists) { readAhead_.expect(lists); }

    /// The set of two or more equal files. The first one stays when all are marked.
    [[nodiscard]] static std::shared_ptr<Set> setOfFileDetailsFrom(
        const std::vector<std::shared_ptr<File>>& group);

    /// Bytes read so far, by all categories together.
    [[nodiscard]] std::uint64_t bytesRead() const { return reader_.bytesRead(); }
    /// Bytes of memory allocated for reading, by all categories together: the peak use. At most
    /// 48 MiB.
    [[nodiscard]] std::size_t bufferBytes() { return buffers_.bytesAllocated(); }

 private:
    [[nodiscard]] CategoryComparison& keep(std::unique_ptr<CategoryComparison> comparison);
    void letGoOf(const CategoryComparison& comparison);

    WorkerPool& pool_;
    ScanControl& control_;
    ComparisonProgress progress_;
    ComparedBytes& bytes_;
    CandidateReader reader_;
    BufferPool buffers_;
    ContentPartition partition_;
    ReadAhead readAhead_;
    std::mutex mutex_;
    // Those that run, and those that workers have not left yet. Guarded by mutex_.
    std::vector<std::unique_ptr<CategoryComparison>> comparisons_;
};

/// Adds the set of `group` to `modal`, under the extension of its first file, and updates the
/// totals. Returns the extension, whose last set it is.
std::shared_ptr<Extensions> fileSetUnderExtension(Modal& modal,
                                                  const std::vector<std::shared_ptr<File>>& group);

}  // namespace tarvin
