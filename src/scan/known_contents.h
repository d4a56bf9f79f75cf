#pragma once

#include "model/file.h"
#include "scan/content_verdict.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tarvin {

class FileStore;

/// What earlier scans have found out about the files of one size class, and which of the files must
/// be read to know the rest: those of which nothing is known, and one file of each known content,
/// its representative. A doubtful file counts as unknown. Numbers are those of the class, unless
/// stated otherwise. Immutable.
class KnownContents final {
 public:
    /// Requires that all files have versions.
    explicit KnownContents(std::span<File* const> files);

    /// Whether nothing has to be read.
    [[nodiscard]] bool decideAll() const { return toRead_.empty(); }
    /// The numbers of the files to read, ascending.
    [[nodiscard]] const FileGroup& toRead() const { return toRead_; }
    /// The files of known contents that have two or more, ascending.
    [[nodiscard]] const std::vector<FileGroup>& groups() const { return groups_; }
    /// Whether a file of toRead() is a representative.
    [[nodiscard]] bool isRepresentative(std::size_t position) const {
        return groupOf_[position] != unknown;
    }
    /// Whether it is one of a content that two or more files of the class are known to have.
    [[nodiscard]] bool standsForOthers(std::size_t position) const {
        return groupOf_[position] < alone;
    }
    /// All files that are equal to a group of read files, ascending. The group's members are
    /// positions in toRead().
    [[nodiscard]] FileGroup withKnown(const FileGroup& read) const;

 private:
    static constexpr std::uint32_t unknown = 0xFFFFFFFF;
    static constexpr std::uint32_t alone = unknown - 1;

    std::span<File* const> files_;
    FileGroup toRead_;
    std::vector<std::uint32_t> groupOf_;  // by position in toRead_; a group, or one of the above
    std::vector<FileGroup> groups_;
};

/// Stores in the versions of a class's files what is known now that all have been compared.
/// `groups` are the sets of equal files; all other files are different from them and from each
/// other. Leaves doubtful files out. `store` owns the files.
void noteContents(std::span<File* const> files, const std::vector<FileGroup>& groups,
                  FileStore& store);

}  // namespace tarvin
