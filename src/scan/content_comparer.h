#pragma once

#include "scan/buffer_pool.h"
#include "scan/candidate_reader.h"
#include "scan/comparison_order.h"
#include "scan/content_verdict.h"
#include "scan/range_comparison.h"
#include "scan/worker_pool.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace tarvin {

/// Splits files of one current size into groups of equal content, by comparing the bytes.
///
/// Reads every byte of a file at most once, and reads no further once a file is known to differ
/// from all others. Memory and open files are bounded however many files there are: the files are
/// compared range by range (RangeComparison).
///
/// Made for one class; compare() may be called on several threads at once, for different groups.
class ContentComparer final {
 public:
    /// All references must outlive the comparer.
    ContentComparer(CandidateReader& reader, BufferPool& buffers, WorkerPool& pool,
                    Candidates candidates);

    /// Reports the groups of two or more equal files among `group`, whose files had the same size
    /// when they were opened, each as soon as it is confirmed. Unreadable and changed files are in
    /// no group. After a stop a group has the members that had been read to their ends before it;
    /// the others are not reported.
    void compare(FileGroup group, ContentVerdict& verdict);

 private:
    /// Positions from which and up to which files are compared.
    struct Section {
        std::uint64_t from = 0;
        std::uint64_t to = 0;
        bool isWholeFile = false;
    };

    /// Receives the files that are equal up to the end of a section.
    using Agreed = std::function<void(FileGroup group)>;

    void compareSection(FileGroup group, const ComparisonOrder& order, Section section,
                        BufferPool::Lease& lease, const Agreed& agreed, ContentVerdict& verdict);
    void readAhead(AgreeingFiles& files, const ComparisonOrder& order, std::uint64_t to);
    [[nodiscard]] std::vector<FileGroup> compareInParallel(FileGroup group,
                                                           const ComparisonOrder& order,
                                                           std::vector<BufferPool::Lease>& leases,
                                                           ContentVerdict& verdict);
    void report(const FileGroup& group, ContentVerdict& verdict);
    [[nodiscard]] FileGroup withoutChanged(const FileGroup& group);
    [[nodiscard]] bool isOnRotationalDevice(std::uint32_t number) const;

    CandidateReader& reader_;
    BufferPool& buffers_;
    WorkerPool& pool_;
    Candidates candidates_;
};

}  // namespace tarvin
