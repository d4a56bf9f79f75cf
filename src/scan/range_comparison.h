#pragma once

#include "scan/buffer_pool.h"
#include "scan/candidate_reader.h"
#include "scan/comparison_order.h"
#include "scan/content_verdict.h"
#include "scan/worker_pool.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace tarvin {

/// Groups up to this size are read in the largest chunks.
inline constexpr std::size_t maxSmallGroup = 32;

/// The slabs that a range comparison of this many files needs.
[[nodiscard]] std::size_t slabsFor(std::size_t groupSize);
/// The most bytes of the reference file that are held at once, with a lease of `capacity` bytes.
[[nodiscard]] std::size_t maxReferenceBytes(std::size_t groupSize, std::size_t capacity);

/// The files of one class, by number. Files that are open already stay open. Any other file is
/// opened for each range, and its stamp must be that in `seen`, before and after.
struct Candidates {
    std::span<File* const> files;
    std::span<const std::optional<FileStamp>> seen;
    std::span<std::optional<OpenCandidate>> open;  ///< empty if none is
};

/// Files that agree up to a position of the ComparisonOrder.
struct AgreeingFiles {
    FileGroup group;
    std::uint64_t position = 0;
    std::uint64_t readAheadTo = 0;  ///< position up to which they are in the page cache, or will be
};

/// Compares one range of a group's files with that of a reference file, one of the group. A file
/// leaves the reference at the first chunk that differs; files that leave with equal chunks at the
/// same offset stay together. Memory: the range of the reference, and one chunk of each file that
/// left it.
///
/// Made for one range and used on one thread, which shares large groups out among the workers.
class RangeComparison final {
 public:
    struct Context {
        CandidateReader& reader;
        WorkerPool& pool;
        const Candidates& candidates;
        ContentVerdict& verdict;
    };

    /// With `decidesFiles`, a file that agrees with the reference to the end of the range is
    /// reported as decided. The context's objects and the lease must outlive this object.
    RangeComparison(Context context, ComparisonOrder::Range range, std::size_t groupSize,
                    BufferPool::Lease& lease, bool decidesFiles);

    /// Compares the files of `group`. Call at most once.
    void compare(const FileGroup& group);

    /// Calls `agreed` for the groups of two or more that have reached position `to`, and appends
    /// the others, with the positions they have reached, to `into`. `before` has the files as they
    /// were before this range. Call at most once, after compare().
    void collect(const AgreeingFiles& before, std::uint64_t to, std::vector<AgreeingFiles>& into,
                 const std::function<void(FileGroup group)>& agreed);

 private:
    class Opened;

    /// Files that left the reference at `offset` with these bytes.
    struct Branch {
        std::size_t offset;
        std::span<std::byte> bytes;
        FileGroup group;
    };

    std::size_t allocateReference(std::size_t maxBytes);
    [[nodiscard]] std::span<std::byte> referenceAt(std::size_t offset) const;
    bool readReference(std::uint32_t file);
    void compareAll(std::span<const std::uint32_t> files);
    void compareFile(std::uint32_t file, std::span<std::byte> scratch);
    std::span<std::byte> takeScratch();
    void logIfChanged(std::span<const std::uint32_t> files);
    void stay(std::uint32_t file);
    void leave(std::uint32_t file, std::size_t offset, std::span<std::byte> chunk);

    const Context context_;
    const ComparisonOrder::Range range_;
    const bool decidesFiles_;
    std::size_t chunkBytes_ = 0;
    bool isPair_ = false;
    std::vector<std::span<std::byte>> reference_;  // in slabs
    std::mutex mutex_;
    BufferPool::Lease& lease_;                                         // guarded by mutex_
    std::vector<std::span<std::byte>> scratch_;                        // guarded by mutex_
    FileGroup same_;                                                   // guarded by mutex_
    std::unordered_map<std::uint64_t, std::vector<Branch>> branches_;  // guarded by mutex_
};

}  // namespace tarvin
