#pragma once

#include "scan/progress_mailbox.h"
#include "scan/scan_observer.h"

#include <QObject>

namespace tarvin {

/// Observes a scan on its threads. Rare events become signals, which reach the main thread through
/// its event loop; frequent ones go to a mailbox that the screen polls. Created on the main thread;
/// must outlive the scan.
class ScanMessenger final : public QObject, public ScanObserver {
    Q_OBJECT

 public:
    using QObject::QObject;

    /// Forgets the previous scan. Main thread only, while no scan runs.
    void clear() { mailbox_.clear(); }
    /// Copies the latest progress; leaves `progress` unchanged if a scan thread is writing, so that
    /// the caller never blocks on it. Any thread.
    void tryLatest(Progress& progress) const { mailbox_.tryLatest(progress); }

    // Called on threads of the scan.

    void collecting(const std::string& path) override { mailbox_.collecting(path); }
    void collectionPaused(bool paused) override { Q_EMIT collectionWaits(paused); }
    void nothingCollected() override { Q_EMIT foundNoFiles(); }
    void collectionFinished() override { Q_EMIT collectionIsOver(); }
    void comparisonStarted(std::uint64_t total) override {
        mailbox_.comparisonStarted(total);
        Q_EMIT comparisonBegins(total);
    }
    void processing(const std::string& path, std::uint64_t processed) override {
        mailbox_.processing(path, processed);
    }
    void comparisonFinished(std::uint64_t processed) override {
        Q_EMIT comparisonIsOver(processed);
    }
    void memoryStored(const MemoryReport& report) override { Q_EMIT memoryIsStored(report); }
    void waitingFor(const std::string& path) override { mailbox_.waitingFor(path); }
    void elapsed(const std::string& text) override { mailbox_.elapsed(text); }

 Q_SIGNALS:
    void collectionWaits(bool paused);
    void foundNoFiles();
    void collectionIsOver();
    void comparisonBegins(quint64 total);
    void comparisonIsOver(quint64 processed);
    void memoryIsStored(const tarvin::MemoryReport& report);

 private:
    ProgressMailbox mailbox_;
};

}  // namespace tarvin
