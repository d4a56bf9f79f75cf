#pragma once

#include "scan/buffer_pool.h"
#include "scan/candidate_reader.h"
#include "scan/content_comparer.h"
#include "scan/content_verdict.h"
#include "scan/worker_pool.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace tarvin {

/// Splits the files of one recorded size into groups of equal content, by their current bytes. The
/// method depends on the class: a few small files are read whole and compared in memory; many files
/// are first split by a hash of their first block; all others are compared byte by byte at once. No
/// group depends on a hash alone.
///
/// Any thread; one object serves all classes of a scan. After a stop only groups that were
/// confirmed before it are reported.
class ContentPartition final {
 public:
    ContentPartition(CandidateReader& reader, BufferPool& buffers, WorkerPool& pool)
        : reader_(reader), buffers_(buffers), pool_(pool) {}

    /// A file that was read whole, in a workspace.
    struct WholeFile {
        std::uint32_t number = 0;
        bool taken = false;  ///< equal to an earlier file
        std::span<const std::byte> bytes;
        std::uint64_t hash = 0;
    };

    /// The resources for reading whole files: memory for one class, and one descriptor.
    class Workspace final {
     public:
        /// The state of a file of the last class when it was opened. Requires that the file is in a
        /// group.
        [[nodiscard]] const FileStamp& stampOf(std::uint32_t number) const {
            // NOLINTNEXTLINE(bugprone-unchecked-optional-access): it was read
            return *stamps_[number];
        }

     private:
        friend class ContentPartition;
        Workspace(BufferPool::Lease lease, Budget::Share descriptor)
            : lease_(std::move(lease)), descriptor_(std::move(descriptor)) {}

        BufferPool::Lease lease_;
        Budget::Share descriptor_;
        // Members only to reuse their memory from class to class.
        std::vector<WholeFile> read_;
        std::vector<std::optional<FileStamp>> stamps_;
    };

    /// Whether a class is small enough for compareWhole(). Such classes cost little, so a task
    /// should take several.
    [[nodiscard]] static bool isReadWhole(std::uint64_t fileSize, std::size_t fileCount);
    /// Blocks until memory and descriptor are free. The caller must not hold a workspace.
    [[nodiscard]] Workspace makeWorkspace();

    /// Returns the groups of two or more equal files among `files`, each ascending. An unreadable
    /// file is in no group. A file is read by one call, so a change meanwhile is seen only by its
    /// length; its stamp is that before the call, so a move of the file will see any other. Returns
    /// nullopt if a file has grown too large since it was listed, or is on an unsteady volume,
    /// where stamps show no change; use partition() then. After a stop: the groups among the files
    /// read before it.
    [[nodiscard]] std::optional<std::vector<FileGroup>> compareWhole(std::span<File* const> files,
                                                                     Workspace& workspace);

    /// Makes a file doubtful if it is not as it was collected any more; see FileVersion.
    void checkVersion(const File& file) { reader_.checkVersion(file); }

    /// The same for any class; reports each group as soon as it is confirmed. A group with a file
    /// on an unsteady volume is confirmed only by a second comparison of all its bytes: a file that
    /// was changed once while it was read the first time differs then. Its files that are not equal
    /// the second time are logged as changed. The caller must not hold a workspace.
    void partition(std::span<File* const> files, ContentVerdict& verdict);

 private:
    struct Inspection;
    class RepeatFilter;
    class FirstComparison;
    class SecondComparison;

    [[nodiscard]] bool compareOpen(std::span<File* const> files, const Inspection& seen,
                                   const FileGroup& group, ContentVerdict& verdict);
    void compareSurely(ContentComparer& comparer, std::span<File* const> files,
                       std::span<const std::optional<FileStamp>> stamps, FileGroup group,
                       ContentVerdict& verdict);
    void compareAgain(ContentComparer& comparer, std::span<File* const> files,
                      const FileGroup& group, ContentVerdict& verdict);
    void logResized(std::span<File* const> files, std::span<const std::optional<FileStamp>> stamps,
                    const std::vector<FileGroup>& groups);
    void inspectAll(std::span<File* const> files, Inspection& seen);
    void inspect(std::uint32_t number, const File& file, Inspection& seen);

    CandidateReader& reader_;
    BufferPool& buffers_;
    WorkerPool& pool_;
};

}  // namespace tarvin
