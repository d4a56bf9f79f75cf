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

/// The files that a clean-up has left where they are, and why, in the order in which it came to
/// them. All are counted; as many are kept as a list shows. One thread at a time.
class KeptFiles final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::KeptFiles)

 public:
    /// What came of one file; nothing if it was moved.
    void add(const File& file, const MoveResult& result);
    /// The marked files of the sets behind `last`, or of all sets if there is none: a clean-up that
    /// would have moved them has ended before, with `result`.
    void addRest(const Modal& modal, const Set* last, const MoveResult& result);

    [[nodiscard]] std::uint64_t count() const { return count_; }
    /// Main thread.
    [[nodiscard]] QVector<FileReason> reasons() const;

    /// Why a file was left, in the language of the window where the reason is one of a few, else in
    /// the system's words. Main thread.
    [[nodiscard]] static QString reasonOf(const MoveResult& result);

 private:
    struct Kept {
        std::string path;
        MoveResult result;
    };

    [[nodiscard]] static QString refusalText(const MoveResult& result);

    std::vector<Kept> listed_;
    std::uint64_t count_ = 0;
};

}  // namespace tarvin
