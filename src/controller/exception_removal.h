#pragma once

#include "store/exception_file.h"

#include <QObject>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// Takes files off the exceptions list: first in the file, on a background thread, because a long
/// list takes some tenths of a second and the folder may be on a drive that does not respond; then
/// in memory. Main thread only.
class ExceptionRemoval final : public QObject {
    Q_OBJECT

 public:
    /// `list` must outlive this object. While a removal is not over, only wait() makes it possible
    /// to change the list otherwise.
    explicit ExceptionRemoval(ExceptionFile& list);
    ExceptionRemoval(const ExceptionRemoval&) = delete;
    ExceptionRemoval& operator=(const ExceptionRemoval&) = delete;
    /// Waits for at most two seconds. A thread that blocks longer is left behind (leftThreads) and
    /// may still write the file.
    ~ExceptionRemoval() override;

    /// Begins to remove these paths, or queues them behind those that are being removed. If those
    /// cannot be removed, none of them are.
    void start(const std::vector<std::string>& paths);
    /// Whether nothing is being written.
    [[nodiscard]] bool isOver() const;
    /// Blocks until nothing is being written, and updates the list in memory.
    void wait();
    /// Updates the list in memory, and returns why paths could not be removed since the last call:
    /// these are in the list as before. Only when it is over.
    [[nodiscard]] std::optional<StoreError> take();

    /// The list in memory without the paths that are being removed.
    [[nodiscard]] std::vector<std::string> remaining() const;

 Q_SIGNALS:
    /// Nothing is being written any more, if start() was not called since. Emitted on the main
    /// thread, never before start() returns.
    void over();

 private:
    class Shared;

    void settle();

    ExceptionFile& list_;
    std::vector<std::string> removed_;  // which the list in memory still has
    std::optional<StoreError> failure_;
    const std::shared_ptr<Shared> shared_;  // with the thread
};

}  // namespace tarvin
