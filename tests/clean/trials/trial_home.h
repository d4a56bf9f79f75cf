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

/// The home of the user who cleans up in a trial, with a Trash, a journal and totals: a folder of
/// the trial's own. This process and its children have it for theirs.
class TrialHome final {
 public:
    /// `path` need not exist. Before anything asks where the Trash is.
    explicit TrialHome(std::string path);

    /// Empties it.
    void renew() const;

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string trash() const { return path_ + "/data/Trash"; }
    /// Files that are in the Trash.
    [[nodiscard]] std::size_t trashed() const;
    /// Notes in the Trash that tell of nothing that is there.
    [[nodiscard]] std::size_t notesWithoutFile() const;

 private:
    const std::string path_;
};

/// The files of a trial as they were written, by their paths.
using Originals = std::map<std::string, std::string>;

/// What must not be: each of these has to be 0.
struct Losses {
    std::uint64_t contents = 0;  ///< no file outside the Trash has it
    std::uint64_t files = 0;     ///< neither in its place nor in the Trash
    std::uint64_t notes = 0;     ///< files in the Trash without a whole note of where they were
    std::uint64_t rows = 0;      ///< files in the Trash that the journal does not have there, or
                                 ///< the other way round
    std::uint64_t totals = 0;    ///< 1 if the lifetime totals are not what is in the Trash

    [[nodiscard]] std::uint64_t sum() const { return contents + files + notes + rows + totals; }
    Losses& operator+=(const Losses& more);
};

/// "3 contents, 1 note", for a person.
[[nodiscard]] std::string described(const Losses& losses);

/// Compares what is there now with what was. All clean-ups have ended or been recovered.
[[nodiscard]] Losses lossesOf(const TrialHome& home, const Originals& originals);

/// Writes sets of equal files, one of each set in each of `folders`, whose paths begin with '/'.
[[nodiscard]] Originals writeSets(const std::string& tree,
                                  std::initializer_list<const char*> folders, std::size_t sets);

/// Finds out what became of clean-ups whose process was killed, as the programs do at their start.
/// False if that failed.
[[nodiscard]] bool recoverAsAtTheStart();

/// The result of a scan of these folders, in this order, the first file of each set unmarked.
[[nodiscard]] std::shared_ptr<Modal> scanned(const std::vector<std::string>& folders);

/// The bytes of a file; empty if it cannot be read.
[[nodiscard]] std::string bytesOf(const std::string& path);
void writeBytes(const std::string& path, const std::string& bytes);

}  // namespace tarvin
