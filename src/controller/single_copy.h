#pragma once

#include "platform/running_copies.h"

#include <QByteArray>
#include <QObject>
#include <string>
#include <vector>

namespace tarvin {

/// Sees to it that one copy of the program stays, and hears what the others ask of this one. Main
/// thread.
class SingleCopy final : public QObject {
    Q_OBJECT

 public:
    /// `copies` outlive it.
    explicit SingleCopy(RunningCopies& copies) : copies_(copies) {}
    SingleCopy(const SingleCopy&) = delete;
    SingleCopy& operator=(const SingleCopy&) = delete;
    ~SingleCopy() override { copies_.leave(); }

    /// Joins the others and has all but the first of them end. If this is not the first, that one
    /// is handed the folders, absolute paths. Whether this one stays. Called once.
    bool keepFirst(const std::vector<std::string>& folders);

 Q_SIGNALS:
    // From a thread of their own, so to be connected through the event loop.

    void quitRequested();
    void frontRequested(const QByteArray& activationToken);
    /// Absolute paths, native bytes.
    void foldersRequested(const std::vector<std::string>& folders);

 private:
    CopyRequests requests();

    RunningCopies& copies_;
};

}  // namespace tarvin
