#include "controller/remembered_scans.h"

#include "controller/own_reasons.h"
#include "store/scan_memory.h"

#include <QStringList>
#include <chrono>
#include <memory>
#include <variant>

namespace tarvin {

namespace {

constexpr std::chrono::seconds patience{2};

}  // namespace

RememberedScans::RememberedScans(Session& session, QAction& item, Alerts& alerts)
    : session_(session), item_(item), alerts_(alerts) {
    connect(&item, &QAction::toggled, this, [this](bool isChecked) {
        if (!isChecked) {
            forget();
        }
    });
    connect(this, &RememberedScans::forgotten, this, [this](bool succeeded) {
        if (!succeeded) {
            alerts_.show(noticeOf(tr("The remembered scans could not be removed.")));
        }
    });
}

std::optional<std::string> RememberedScans::memoryFolder() const {
    return item_.isChecked() ? session_.appSupportPath() : std::nullopt;
}

void RememberedScans::report(const MemoryReport& report) {
    QStringList lines;
    if (!report.damaged.empty()) {
        lines << tr("The remembered scans were damaged. This scan has read all files.");
    }
    if (report.notRead) {
        lines << tr("The remembered scans could not be used: %1")
                     .arg(OwnReasons::of(*report.notRead));
    }
    if (report.notStored) {
        lines << tr("This scan could not be remembered: %1").arg(OwnReasons::of(*report.notStored));
    }
    if (!lines.isEmpty()) {
        alerts_.show(noticeOf(lines.join('\n')));
    }
}

void RememberedScans::forget() {
    const std::optional<std::string> folder = session_.appSupportPath();
    if (!folder) {
        return;
    }
    const auto succeeded = std::make_shared<bool>(false);
    thread_.start(
        [folder = *folder, succeeded] {
            const auto removed = ScanMemory::remove(folder, {.patience = patience});
            *succeeded = std::holds_alternative<bool>(removed);
        },
        [this, succeeded] { Q_EMIT forgotten(*succeeded); });
}

}  // namespace tarvin
