#pragma once

#include "controller/path_text.h"
#include "controller/shown_numbers.h"

#include <QCoreApplication>
#include <QString>
#include <algorithm>
#include <chrono>
#include <cstdint>
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

    /// How far the comparison is, in bytes.
    [[nodiscard]] static QString compared(std::uint64_t done, std::uint64_t total) {
        return tr("%1 of %2 compared")
            .arg(ShownNumbers::roundedSize(done), ShownNumbers::roundedSize(total));
    }
    /// In minutes, from 90 of them in hours.
    [[nodiscard]] static QString timeLeft(std::chrono::seconds left) {
        constexpr std::chrono::minutes leastInHours{90};
        const auto minutes = std::chrono::round<std::chrono::minutes>(left);
        if (left < std::chrono::minutes(1)) {
            return tr("less than a minute left");
        }
        if (minutes >= leastInHours) {
            const auto hours = std::chrono::floor<std::chrono::hours>(
                minutes + std::chrono::minutes(30));  // half of them rounds up
            return tr("about %1 hours left").arg(hours.count());
        }
        return minutes.count() == 1 ? tr("about 1 minute left")
                                    : tr("about %1 minutes left").arg(minutes.count());
    }
    /// The state while the user has paused the scan.
    [[nodiscard]] static QString paused() { return tr("Paused"); }
    /// The state from the answer to the stop question to the result.
    [[nodiscard]] static QString stopping() { return tr("Stopping…"); }
    /// While a stop takes long.
    [[nodiscard]] static QString waitingForCurrentFile() {
        return tr("Waiting for the file in hand.");
    }
};

}  // namespace tarvin
