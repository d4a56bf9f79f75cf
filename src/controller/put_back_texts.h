#pragma once

#include "clean/put_back.h"

#include <QCoreApplication>
#include <QString>
#include <cstdint>

namespace tarvin {

/// The texts of putting a clean-up back. Main thread only.
class PutBackTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::PutBackTexts)

 public:
    /// The title of every panel.
    [[nodiscard]] static QString title();

    // Before the run.

    /// "1,406 files (157.46 MB)".
    [[nodiscard]] static QString total(std::uint64_t files, std::uint64_t bytes);
    /// While the outcomes are unknown.
    [[nodiscard]] static QString checking();
    [[nodiscard]] static QString coming(std::uint64_t files);
    /// Empty if there are none.
    [[nodiscard]] static QString staying(std::uint64_t files);

    // During the run.

    [[nodiscard]] static QString progress(std::uint64_t done, std::uint64_t files);

    // After the run.

    [[nodiscard]] static QString filesPutBack(std::uint64_t files);
    [[nodiscard]] static QString size(std::uint64_t bytes);
    [[nodiscard]] static QString failed(std::uint64_t files);
    [[nodiscard]] static QString scanAgain();
    /// The last line of the report of a run that failed.
    [[nodiscard]] static QString notAll(const QString& reason);

    // When nothing can be put back.

    [[nodiscard]] static QString nothing();
    [[nodiscard]] static QString nothingBecause(NothingToPutBack reason);
    /// The reason follows on its own line.
    [[nodiscard]] static QString notBegun();
};

}  // namespace tarvin
