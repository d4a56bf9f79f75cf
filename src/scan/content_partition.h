#pragma once

#include "scan/buffer_pool.h"
#include "scan/candidate_reader.h"
#include "scan/content_prover.h"
#include "scan/worker_pool.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace tarvin {

/// Splits the files of one recorded size into groups of equal content, judged as the files stand
/// now. The way depends on the class: a few small files are read whole and compared in memory; many
/// files are told apart by a fingerprint of their first block, and only what that leaves together
/// is compared byte by byte; the rest is compared at once. No group rests on a fingerprint.
///
/// Any thread; one object serves all classes of a scan. After a stop only what was proven before it
/// is told.
class ContentPartition final {
 public:
    ContentPartition(CandidateReader& reader, BufferPool& buffers, WorkerPool& pool)
        : reader_(reader), buffers_(buffers), pool_(pool) {}

    /// A file read whole, in a workspace.
    struct WholeFile {
        std::uint32_t number = 0;
        bool taken = false;  ///< found equal to one before it
        std::span<const std::byte> bytes;
        std::uint64_t fingerprint = 0;
    };

    /// What reading whole files takes: memory for one class and one open file.
    class Workspace final {
     public:
        /// What a file that was read last was when it was opened. Only of members of a group.
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
        // Kept from class to class for their memory alone.
        std::vector<WholeFile> read_;
        std::vector<std::optional<FileStamp>> stamps_;
    };

    /// Whether a class is fit for compareWhole(). Such classes cost little and are better handed
    /// over several at a time.
    [[nodiscard]] static bool isReadWhole(std::uint64_t fileSize, std::size_t fileCount);
    /// Waits for its parts. The caller must not hold a workspace already.
    [[nodiscard]] Workspace makeWorkspace();

    /// The groups of two or more equal files among `files`, each ascending. An unreadable file is
    /// in none. No value if a file has grown too large meanwhile; the class is one for partition()
    /// then. After a stop the groups among the files read before it.
    [[nodiscard]] std::optional<std::vector<FileGroup>> compareWhole(std::span<File* const> files,
                                                                     Workspace& workspace);

    /// The same for any class, told as soon as each is known. The caller must not hold a workspace.
    void partition(std::span<File* const> files, ContentVerdict& verdict);

 private:
    struct Seen;

    class Unrepeated;

    [[nodiscard]] bool proveOpen(std::span<File* const> files, const Seen& seen,
                                 const FileGroup& group, ContentVerdict& verdict);
    void look(std::span<File* const> files, Seen& seen);
    void lookAt(std::uint32_t number, const File& file, Seen& seen);

    CandidateReader& reader_;
    BufferPool& buffers_;
    WorkerPool& pool_;
};

}  // namespace tarvin
