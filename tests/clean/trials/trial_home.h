#pragma once

#include "model/modal.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

/// The home of the user of a trial, with a Trash, a journal and totals. This process and its
/// children use it as theirs.
class TrialHome final {
 public:
    /// `path` need not exist. To be created before the location of the Trash is first determined.
    explicit TrialHome(std::string path);

    /// Deletes its contents.
    void renew() const;

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string trash() const { return path_ + "/data/Trash"; }
    /// Files that are in the Trash.
    [[nodiscard]] std::size_t trashed() const;
    /// Returns the number of .trashinfo files without a file in the Trash.
    [[nodiscard]] std::size_t trashInfosWithoutFile() const;

 private:
    const std::string path_;
};

/// The files of a trial as they were written, by their paths.
using Originals = std::map<std::string, std::string>;

/// Losses; each must be 0.
struct Losses {
    std::uint64_t contents = 0;    ///< without a file outside the Trash
    std::uint64_t files = 0;       ///< neither in its place nor in the Trash
    std::uint64_t trashInfos = 0;  ///< files in the Trash without a complete .trashinfo file
    std::uint64_t rows = 0;        ///< files in the Trash without a journal row, or rows without
                                   ///< a file
    std::uint64_t totals = 0;      ///< 1 if the lifetime totals differ from the files in the Trash

    [[nodiscard]] std::uint64_t sum() const {
        return contents + files + trashInfos + rows + totals;
    }
    Losses& operator+=(const Losses& more);
};

/// Returns a text such as "3 files lost, 1 wrong totals".
[[nodiscard]] std::string described(const Losses& losses);

/// Compares the current state with the original files. Requires that all clean-ups have ended or
/// been recovered.
[[nodiscard]] Losses lossesOf(const TrialHome& home, const Originals& originals);

/// Writes sets of equal files, one of each set in each of `folders`, whose paths begin with '/'.
[[nodiscard]] Originals writeSets(const std::string& tree,
                                  std::initializer_list<const char*> folders, std::size_t sets);

/// Recovers killed clean-ups as the programs do at their start. Returns false if that failed.
[[nodiscard]] bool recoverAsAtTheStart();

/// Scans these folders, in this order, and marks all files but the first of each set.
[[nodiscard]] std::shared_ptr<Modal> scanned(const std::vector<std::string>& folders);

/// Returns the bytes of a file; empty if it cannot be read.
[[nodiscard]] std::string bytesOf(const std::string& path);
void writeBytes(const std::string& path, const std::string& bytes);

}  // namespace tarvin
