#pragma once

#include <QCoreApplication>
#include <QString>
#include <string_view>

namespace tarvin {

/// The texts of the progress screen that change during a scan. Main thread only.
class ScanScreenTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::ScanScreenTexts)

 public:
    /// While the collection starts.
    [[nodiscard]] static QString collecting();
    /// For the file that was collected last; paths are native bytes.
    [[nodiscard]] static QString collecting(std::string_view path);
    /// For the file that was compared last.
    [[nodiscard]] static QString processing(std::string_view path);
    /// While a folder or file does not respond.
    [[nodiscard]] static QString waitingFor(std::string_view path);
    /// The time of a text such as "Elapsed Time: 00:01:02".
    [[nodiscard]] static QString elapsed(std::string_view text);
    [[nodiscard]] static QString searching();
    [[nodiscard]] static QString searchingTitle();
    [[nodiscard]] static QString noDuplicates();
    /// When memory ran out during the scan.
    [[nodiscard]] static QString outOfMemory();
    [[nodiscard]] static QString pause();
    [[nodiscard]] static QString resume();
};

}  // namespace tarvin
