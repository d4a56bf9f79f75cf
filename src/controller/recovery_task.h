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
    /// Waits for two seconds at most. A thread that hangs longer is left behind, and goes on to use
    /// the platform.
    ~RecoveryTask() override;

    /// How many threads have been left behind and still run. Any thread.
    [[nodiscard]] static int leftBehind();
    /// The last of main(): answers the exit status. If a thread was left behind, it ends the
    /// process with that status instead, without destroying what the thread uses: the platform and
    /// other objects that live as long as the process. Everything else should be gone by then.
    [[nodiscard]] static int endOfProcess(int status);

 Q_SIGNALS:
    /// The stored totals may have changed. On the main thread.
    void totalsSettled();

 private:
    class Shared;

    std::shared_ptr<Shared> shared_;
};

}  // namespace tarvin
