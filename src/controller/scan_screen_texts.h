#pragma once

#include "controller/path_text.h"

#include <QCoreApplication>
#include <QString>
#include <algorithm>
#include <string_view>

namespace tarvin {

/// The texts of the progress screen that change during a scan. Main thread only.
class ScanScreenTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::ScanScreenTexts)

 public:
    /// While the collection starts.
    [[nodiscard]] static QString collecting() { return tr("Collecting Files..."); }
    /// For the file that was collected last; paths are native bytes.
    [[nodiscard]] static QString collecting(std::string_view path) {
        return tr("Collecting Files: %1").arg(textOfPath(path));
    }
    /// For the file that was compared last.
    [[nodiscard]] static QString processing(std::string_view path) {
        return tr("Processing File: %1").arg(textOfPath(path));
    }
    /// While a folder or file does not respond.
    [[nodiscard]] static QString waitingFor(std::string_view path) {
        return tr("Waiting for: %1").arg(textOfPath(path));
    }
    /// The time of a text such as "Elapsed Time: 00:01:02".
    [[nodiscard]] static QString elapsed(std::string_view text) {
        constexpr std::size_t clockLength = 8;  // hh:mm:ss
        const std::string_view clock =
            text.substr(text.size() - std::min(text.size(), clockLength));
        return tr("Elapsed Time: %1")
            .arg(QString::fromUtf8(clock.data(), static_cast<qsizetype>(clock.size())));
    }
    [[nodiscard]] static QString searching() { return tr("Searching for duplicate files..."); }
    [[nodiscard]] static QString searchingTitle() { return tr("Searching for duplicate files"); }
    [[nodiscard]] static QString noDuplicates() { return tr("No duplicates File found"); }
    /// When memory ran out during the scan.
    [[nodiscard]] static QString outOfMemory() {
        return tr("There was not enough memory to finish the scan. The result is incomplete.");
    }
    [[nodiscard]] static QString pause() { return tr("Pause"); }
    [[nodiscard]] static QString resume() { return tr("Resume"); }
};

}  // namespace tarvin
