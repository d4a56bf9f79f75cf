#include "controller/remembered_scans.h"

#include "store/scan_memory.h"

#include <chrono>
#include <memory>
#include <variant>

namespace tarvin {

namespace {

constexpr std::chrono::seconds patience{2};

}  // namespace

RememberedScans::RememberedScans(Session& session, QAction& item, Alerts& alerts)
    : session_(session), item_(item) {
    connect(&item, &QAction::toggled, this, [this](bool isChecked) {
        if (!isChecked) {
            forget();
        }
    });
    connect(this, &RememberedScans::forgotten, this, [&alerts](bool succeeded) {
        if (!succeeded) {
            alerts.show(noticeOf(tr("The remembered scans could not be removed.")));
        }
    });
}

std::optional<std::string> RememberedScans::memoryFolder() const {
    return item_.isChecked() ? session_.appSupportPath() : std::nullopt;
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
