#pragma once

#include "clean/put_back.h"
#include "controller/shown_numbers.h"

#include <QCoreApplication>
#include <QString>
#include <cstdint>

namespace tarvin {

/// The texts of putting a clean-up back. Main thread only.
class PutBackTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::PutBackTexts)

 public:
    /// The title of every panel.
    [[nodiscard]] static QString title() { return tr("Put Back Last Clean-up"); }

    // Before the run.

    /// "1,406 files (157.46 MB)".
    [[nodiscard]] static QString total(std::uint64_t files, std::uint64_t bytes);
    /// While the outcomes are unknown.
    [[nodiscard]] static QString checking() { return tr("Checking…"); }
    [[nodiscard]] static QString coming(std::uint64_t files);
    /// Empty if there are none.
    [[nodiscard]] static QString staying(std::uint64_t files);

    // During the run.

    [[nodiscard]] static QString progress(std::uint64_t done, std::uint64_t files) {
        return tr("%1 of %2 files. Nothing that is there now is replaced.")
            .arg(ShownNumbers::count(done), ShownNumbers::count(files));
    }

    // After the run.

    [[nodiscard]] static QString filesPutBack(std::uint64_t files) {
        return tr("Files Put Back: %1").arg(ShownNumbers::count(files));
    }
    [[nodiscard]] static QString size(std::uint64_t bytes) {
        return tr("Size: %1").arg(ShownNumbers::size(bytes));
    }
    [[nodiscard]] static QString failed(std::uint64_t files);
    [[nodiscard]] static QString scanAgain() {
        return tr("Scan again to see these files in the results.");
    }
    /// The last line of the report of a run that failed.
    [[nodiscard]] static QString notAll(const QString& reason) {
        return tr("Not all was done or written down: %1").arg(reason);
    }

    // When nothing can be put back.

    [[nodiscard]] static QString nothing() { return tr("There is nothing to put back."); }
    [[nodiscard]] static QString nothingBecause(NothingToPutBack reason);
    /// The reason follows on its own line.
    [[nodiscard]] static QString notBegun() {
        return tr("The last clean-up could not be put back.");
    }
};

}  // namespace tarvin
