#pragma once

#include "scan/scan_services.h"

namespace tarvin {

/// The services that the parts of a scan share, for a test that has only some of the parts.
class ScanTools final {
 public:
    ScanTools(FileSystem& fileSystem, WorkerPool::Limits workers,
              WorkerPool::Use use = useOfThisThread)
        : fileSystem_(fileSystem), pool_(workers, use) {}

    [[nodiscard]] ScanServices services() { return servicesWith(control_); }
    /// The services with another control.
    [[nodiscard]] ScanServices servicesWith(ScanControl& control) {
        return {fileSystem_, pool_, control, watch_, unreadable_, unsteadyVolumes_};
    }

    [[nodiscard]] WorkerPool& pool() { return pool_; }
    [[nodiscard]] ScanControl& control() { return control_; }
    [[nodiscard]] const UnreadableLog& unreadable() const { return unreadable_; }

 private:
    FileSystem& fileSystem_;
    ScanControl control_;
    IoWatch watch_;
    UnreadableLog unreadable_;
    UnsteadyVolumes unsteadyVolumes_;
    WorkerPool pool_;
};

}  // namespace tarvin
