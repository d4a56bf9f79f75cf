#pragma once

#include "platform/running_copies.h"

#include <QByteArray>
#include <QObject>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// Sees to it that one copy of the program stays, and hears what the others ask of this one. Main
/// thread.
class SingleCopy final : public QObject {
    Q_OBJECT

 public:
    /// Joins the other copies. From now on what they ask is kept until listen(). `copies` must
    /// outlive this object.
    explicit SingleCopy(RunningCopies& copies);
    SingleCopy(const SingleCopy&) = delete;
    SingleCopy& operator=(const SingleCopy&) = delete;
    ~SingleCopy() override { copies_.leave(); }

    /// Whether no copy that still runs was started before this one. A copy that comes later does
    /// not change the answer.
    [[nodiscard]] bool isFirst() const;

    /// Asks all copies but the first to end. If this is not the first, that one is handed the
    /// folders, absolute paths. Returns whether this copy stays. Call at most once.
    bool keepFirst(const std::vector<std::string>& folders);

    /// Emits the signals for what was asked so far, and from now on for what is asked.
    void listen();

 Q_SIGNALS:
    void quitRequested();
    void frontRequested(const QByteArray& activationToken);
    /// Absolute paths, native bytes.
    void foldersRequested(const std::vector<std::string>& folders);

    /// From the thread of the requests to this one: something was asked.
    void asked();

 private:
    CopyRequests requests();
    /// On any thread: has `signal` emitted on this one as soon as somebody listens.
    void keep(std::function<void()> signal);
    void emitKept();

    RunningCopies& copies_;
    std::mutex mutex_;
    std::vector<std::function<void()>> kept_;  // guarded by mutex_
    bool listens_ = false;
    std::optional<RunningCopy> self_;  // none if it could not join
};

}  // namespace tarvin
