#pragma once

#include "platform/platform.h"

#include <QObject>
#include <memory>

namespace tarvin {

/// Recovers crashed clean-ups (recoverCleanUps()) once at the start and updates the stored totals.
/// On a background thread, since a drive may respond late or never: neither the window nor, for
/// long, the end of the program waits for it. Main thread only.
class RecoveryTask final : public QObject {
    Q_OBJECT

 public:
    /// Starts the recovery. Without a journal there is nothing to do and totalsSettled() is never
    /// emitted. `platform` must outlive a thread that is left behind, too.
    explicit RecoveryTask(Platform& platform);
    RecoveryTask(const RecoveryTask&) = delete;
    RecoveryTask& operator=(const RecoveryTask&) = delete;
    /// Waits for at most two seconds. A thread that blocks longer is left behind and continues to
    /// use the platform.
    ~RecoveryTask() override;

    /// The number of threads that were left behind, by this or another task, and still run. Any
    /// thread.
    [[nodiscard]] static int leftBehind();
    /// Call last in main(), when only objects of static lifetime are left. Returns `status`, or, if
    /// a thread was left behind, exits with it at once, without destroying the platform and other
    /// static objects that the thread uses.
    [[nodiscard]] static int endOfProcess(int status);

 Q_SIGNALS:
    /// The stored totals may have changed. Emitted on the main thread.
    void totalsSettled();

 private:
    class Shared;

    std::shared_ptr<Shared> shared_;
};

}  // namespace tarvin
