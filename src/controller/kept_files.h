#pragma once

#include "clean/move_outcome.h"
#include "controller/file_reasons.h"
#include "model/modal.h"

#include <QCoreApplication>
#include <QString>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvin {

/// The files that a person has to look at after a clean-up, and why: those that it has left where
/// they are, and those that it has moved, found no other copy of then, and could not move back. In
/// the order in which it came to them. All are counted; as many are kept as a list shows. One
/// thread at a time.
class KeptFiles final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::KeptFiles)

 public:
    /// What came of one file; nothing if it was moved as it should be.
    void add(const File& file, const MoveResult& result);
    /// The marked files of the sets behind `last`, or of all sets if there is none: a clean-up that
    /// would have moved them has ended before, with `result`.
    void addRest(const Modal& modal, const Set* last, const MoveResult& result);

    /// Those that were left.
    [[nodiscard]] std::uint64_t left() const { return left_; }
    /// Those in the Trash that could not be moved back: perhaps the last of their copies.
    [[nodiscard]] std::uint64_t notBack() const { return notBack_; }
    [[nodiscard]] std::uint64_t all() const { return left_ + notBack_; }
    /// As many as a list shows, those in the Trash first. Main thread.
    [[nodiscard]] QVector<FileReason> reasons() const;

    /// Why a file was left, or not moved back, in the language of the window where the reason is
    /// one of a few, else in the system's words. Main thread.
    [[nodiscard]] static QString reasonOf(const MoveResult& result);

 private:
    struct Kept {
        std::string path;
        MoveResult result;
    };

    [[nodiscard]] static QString refusalText(const MoveResult& result);

    static void keep(std::vector<Kept>& files, const File& file, const MoveResult& result);

    std::vector<Kept> listedLeft_;
    std::vector<Kept> listedNotBack_;
    std::uint64_t left_ = 0;
    std::uint64_t notBack_ = 0;
};

}  // namespace tarvin
