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

/// The files that the user has to check after a clean-up, with reasons: those that were not moved,
/// and those that were moved, had no other copy then, and could not be moved back. In the order of
/// the clean-up. All are counted; FileReasons::maxListed of each kind are kept. One thread at a
/// time.
class KeptFiles final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::KeptFiles)

 public:
    /// Adds the outcome of one file, unless it was moved without a problem.
    void add(const File& file, const MoveResult& result);
    /// Adds with `result` the marked files that the clean-up did not reach: those of the sets after
    /// `last`, or of all sets if it is nullptr.
    void addRest(const Modal& modal, const Set* last, const MoveResult& result);

    /// Files that were not moved.
    [[nodiscard]] std::uint64_t left() const { return left_; }
    /// Files in the Trash that could not be moved back and may be the last copies.
    [[nodiscard]] std::uint64_t notBack() const { return notBack_; }
    [[nodiscard]] std::uint64_t all() const { return left_ + notBack_; }
    /// At most FileReasons::maxListed, those in the Trash first. Main thread only.
    [[nodiscard]] QVector<FileReason> reasons() const;

    /// Why a file was not moved, or not moved back: in the language of the window if the reason is
    /// our own, otherwise the system's text. Main thread only.
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
