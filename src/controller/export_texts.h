#pragma once

#include "controller/shown_numbers.h"

#include <QCoreApplication>
#include <QString>
#include <cstdint>

namespace tarvin {

/// The texts of "Export Results…". Main thread only.
class ExportTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::ExportTexts)

 public:
    /// The title of the save panel.
    [[nodiscard]] static QString title() { return tr("Export Results"); }
    /// The suggested name, without an extension; `date` is "2026-11-21".
    [[nodiscard]] static QString fileName(const QString& date) {
        return tr("Duplicate files %1").arg(date);
    }
    // The types of file.
    [[nodiscard]] static QString csv() { return tr("CSV"); }
    [[nodiscard]] static QString json() { return tr("JSON"); }
    [[nodiscard]] static QString text() { return tr("Text"); }

    [[nodiscard]] static QString exported(std::uint64_t sets) {
        return sets == 1 ? tr("1 set exported.")
                         : tr("%1 sets exported.").arg(ShownNumbers::count(sets));
    }
    /// While it takes longer; the name of the file follows on its own line.
    [[nodiscard]] static QString exporting() { return tr("Exporting the results…"); }
    [[nodiscard]] static QString cancel() { return tr("Cancel"); }
    /// The reason follows on its own line.
    [[nodiscard]] static QString notExported() { return tr("The results could not be exported."); }
};

}  // namespace tarvin
