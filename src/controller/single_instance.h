#pragma once

#include "platform/running_instances.h"

#include <QByteArray>
#include <QObject>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// Keeps one instance of the program per user and receives the requests of the others. Main thread
/// only.
class SingleInstance final : public QObject {
    Q_OBJECT

 public:
    /// Joins the other instances. Their requests are queued until listen(). `instances` must
    /// outlive this object.
    explicit SingleInstance(RunningInstances& instances);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance() override { instances_.leave(); }

    /// Asks all instances but the first to quit. If this is not the first, passes `folders`,
    /// absolute paths, to that one. Returns whether this instance stays. Call at most once.
    bool keepFirst(const std::vector<std::string>& folders);

    /// Emits the signals of the queued requests and, from now on, of each request.
    void listen();

 Q_SIGNALS:
    void quitRequested();
    void frontRequested(const QByteArray& activationToken);
    /// Absolute paths, native bytes.
    void foldersRequested(const std::vector<std::string>& folders);

    /// From the thread of the requests to this one.
    void asked();

 private:
    InstanceRequests requests();
    /// Queues a signal to be emitted on the main thread after listen(). Any thread.
    void keep(std::function<void()> signal);
    void emitKept();

    RunningInstances& instances_;
    std::mutex mutex_;
    std::vector<std::function<void()>> kept_;  // guarded by mutex_
    bool listens_ = false;
    std::optional<RunningInstance> self_;  // none if it could not join
};

}  // namespace tarvin
