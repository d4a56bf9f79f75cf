#pragma once

#include "platform/platform.h"

#include <QObject>
#include <memory>

namespace tarvin {

/// Finds out, once at the start, what clean-ups have moved whose process was ended, and brings the
/// stored totals up to it. On a thread of its own, since the drive of a file may answer late or
/// never: the window does not wait for it, and neither does the end of the program for long. Main
/// thread.
class RecoveryTask final : public QObject {
    Q_OBJECT

 public:
    /// Begins. Without a journal of clean-ups there is nothing to do, and totalsSettled() does not
    /// come.
    explicit RecoveryTask(Platform& platform);
    RecoveryTask(const RecoveryTask&) = delete;
    RecoveryTask& operator=(const RecoveryTask&) = delete;
    ~RecoveryTask() override;

 Q_SIGNALS:
    /// The stored totals may have changed. On the main thread.
    void totalsSettled();

 private:
    class Shared;

    std::shared_ptr<Shared> shared_;
};

}  // namespace tarvin
