#pragma once

#include "controller/alerts.h"
#include "controller/session.h"
#include "controller/work_thread.h"
#include "scan/memory_report.h"

#include <QAction>
#include <QObject>
#include <optional>
#include <string>

namespace tarvin {

/// "Remember Scans": whether scans use and keep a ScanMemory. When the item is unchecked, the
/// memory is removed, on a background thread, because another scan may still be storing in it. Main
/// thread only.
class RememberedScans final : public QObject {
    Q_OBJECT

 public:
    /// All arguments must outlive this object.
    RememberedScans(Session& session, QAction& item, Alerts& alerts);
    /// Waits for a removal, which takes two seconds at most while another process uses the memory.
    ~RememberedScans() override = default;

    /// The folder of the memory that a scan is to use, if any.
    [[nodiscard]] std::optional<std::string> memoryFolder() const;
    /// Shows what went wrong with the memory of a scan, if something did.
    void report(const MemoryReport& report);

 Q_SIGNALS:
    /// The end of a removal. Emitted on its thread.
    void forgotten(bool succeeded);

 private:
    void forget();

    Session& session_;
    QAction& item_;
    Alerts& alerts_;
    WorkThread thread_;
};

}  // namespace tarvin
