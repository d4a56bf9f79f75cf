#pragma once

#include "scan/buffer_pool.h"
#include "scan/candidate_reader.h"
#include "scan/worker_pool.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarvin {

/// Numbers of files of one class, ascending.
using FileGroup = std::vector<std::uint32_t>;

/// Hears what comes out of comparing the files of one class. Called on the threads that compare,
/// several at once.
class ContentVerdict {
 public:
    virtual ~ContentVerdict() = default;

    /// What a file of a group was when it was opened to be compared; told before the group is.
    virtual void compared(std::uint32_t /*file*/, const FileStamp& /*stamp*/) {}
    /// Two or more files whose bytes were found equal, from the first to the last. Each file is
    /// in at most one group.
    virtual void equal(FileGroup group) = 0;
    /// Nothing more has to be read of these files: equal to others, unlike all others, or
    /// unreadable. A file may be named again.
    virtual void decided(std::span<const std::uint32_t> files) = 0;
};

/// The order in which the bytes of a file are compared: a small first piece, then the end of the
/// file, where files that begin alike differ most often, then what lies between from front to back.
/// A position counts the bytes that come before it in this order.
class ComparisonOrder final {
 public:
    /// One stretch of the file, in the file's own order.
    struct Piece {
        std::uint64_t offset = 0;
        std::uint64_t length = 0;
    };

    static constexpr std::uint64_t edgeBytes = 8 * 1024;

    explicit ComparisonOrder(std::uint64_t fileSize);

    /// The longest stretch that begins at `position`, which is below the size.
    [[nodiscard]] Piece pieceAt(std::uint64_t position) const;
    [[nodiscard]] std::uint64_t size() const { return size_; }
    /// Where the part between the two edges begins.
    [[nodiscard]] std::uint64_t middle() const { return first_ + last_; }

 private:
    std::uint64_t size_;
    std::uint64_t first_;
    std::uint64_t last_;
};

/// Splits files of one present size into groups of equal content, by comparing the bytes.
///
/// Every byte of a file is read at most once here, and a file whose difference from all others is
/// known is read no further. Memory and open files are bounded however many files there are: a
/// stretch of one file, the trunk, is held, the others are compared with it piece by piece, and of
/// each file that leaves the trunk one piece is kept, so small that there is room for one of every
/// file.
///
/// Made for one class; prove() may be called on several threads at once, for different groups.
class ContentProver final {
 public:
    /// The files by number. What is open already is used and stays open; a file that is not is
    /// opened for each stretch and must be what it was when `seen` was recorded, before and after.
    struct Candidates {
        std::span<File* const> files;
        std::span<const std::optional<FileStamp>> seen;
        std::span<std::optional<OpenCandidate>> open;  ///< empty if none is
    };

    ContentProver(CandidateReader& reader, BufferPool& buffers, WorkerPool& pool,
                  Candidates candidates);

    /// Tells the groups of two or more equal files among `group`, whose files had the same present
    /// size, each as soon as it is proven. Unreadable and changed files are in none. After a stop a
    /// group has the members that were read to their ends before it, and the rest is not told of.
    void prove(FileGroup group, ContentVerdict& verdict);

 private:
    class Opened;
    class Window;
    struct Position;
    struct Stretch;

    /// What is found equal up to the end of a stretch.
    using Proven = std::function<void(FileGroup group)>;

    void proveStretch(FileGroup group, const ComparisonOrder& order, Stretch stretch,
                      BufferPool::Lease& lease, const Proven& proven, ContentVerdict& verdict);
    [[nodiscard]] std::vector<FileGroup> proveInParallel(FileGroup group,
                                                         const ComparisonOrder& order,
                                                         std::vector<BufferPool::Lease>& leases,
                                                         ContentVerdict& verdict);
    void tell(const FileGroup& group, ContentVerdict& verdict);
    [[nodiscard]] FileGroup withoutChanged(const FileGroup& group);
    [[nodiscard]] bool isOnRotationalDevice(std::uint32_t number) const;

    CandidateReader& reader_;
    BufferPool& buffers_;
    WorkerPool& pool_;
    Candidates candidates_;
};

}  // namespace tarvin
