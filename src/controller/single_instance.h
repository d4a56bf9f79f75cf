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

/// Sees to it that one instance of the program stays, and hears what the others ask of this one.
/// Main thread.
class SingleInstance final : public QObject {
    Q_OBJECT

 public:
    /// Joins the other instances. From now on what they ask is kept until listen(). `instances`
    /// must outlive this object.
    explicit SingleInstance(RunningInstances& instances);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance() override { instances_.leave(); }

    /// Whether no instance that still runs was started before this one. An instance that comes
    /// later does not change the answer.
    [[nodiscard]] bool isFirst() const;

    /// Asks all instances but the first to end. If this is not the first, that one is handed the
    /// folders, absolute paths. Returns whether this instance stays. Call at most once.
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
    InstanceRequests requests();
    /// On any thread: has `signal` emitted on this one as soon as somebody listens.
    void keep(std::function<void()> signal);
    void emitKept();

    RunningInstances& instances_;
    std::mutex mutex_;
    std::vector<std::function<void()>> kept_;  // guarded by mutex_
    bool listens_ = false;
    std::optional<RunningInstance> self_;  // none if it could not join
};

}  // namespace tarvin
