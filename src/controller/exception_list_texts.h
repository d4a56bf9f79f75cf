#pragma once

#include <QCoreApplication>
#include <QString>
#include <cstdint>

namespace tarvin {

/// The texts of the panel with the exceptions list. Main thread only.
class ExceptionListTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::ExceptionListTexts)

 public:
    /// "38 files, 4 not there any more"; without the missing ones if there are none.
    [[nodiscard]] static QString count(std::uint64_t files, std::uint64_t missing);
    /// "3 of 38 files": what a search has found.
    [[nodiscard]] static QString found(std::uint64_t found, std::uint64_t files);
    [[nodiscard]] static QString none(const QString& search) {
        return tr("No exception matches \"%1\".").arg(search);
    }

    /// The title of the notice; its lines are notSaved() and the reason.
    [[nodiscard]] static QString title() { return tr("Exceptions"); }
    [[nodiscard]] static QString notSaved() { return tr("The exceptions could not be saved."); }
};

}  // namespace tarvin
