#pragma once

#include "store/exception_file.h"

#include <QObject>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// Changes the exceptions list. The file is written on a background thread, one change after the
/// other, because a long list takes some tenths of a second and the folder may be on a drive that
/// does not respond. Main thread only.
///
/// In memory, which scans use, additions hold at once and even if they cannot be written: then the
/// next addition writes them, too. Removals hold after they were written.
class ExceptionChanges final : public QObject {
    Q_OBJECT

 public:
    /// `list` must outlive this object. Once there was a change, only this object may change it.
    explicit ExceptionChanges(ExceptionFile& list);
    ExceptionChanges(const ExceptionChanges&) = delete;
    ExceptionChanges& operator=(const ExceptionChanges&) = delete;
    /// Waits for at most two seconds. A thread that blocks longer is left behind (leftThreads) and
    /// may still write the file.
    ~ExceptionChanges() override;

    void add(const std::vector<std::string>& paths);
    /// If these paths cannot be removed, those of removals that wait behind it are not either.
    void remove(const std::vector<std::string>& paths);
    /// Empties the list, in memory at once.
    void removeAll();

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
    /// Nothing is being written any more, if no change was begun since. Emitted on the main thread,
    /// never before the call that began the change returns.
    void over();

 private:
    enum class Kind : std::uint8_t { addition, removal, clearing };
    struct Change {
        std::uint64_t number = 0;
        Kind kind = Kind::addition;
        std::vector<std::string> paths;
    };
    class Shared;

    void begin(Change change);
    void settle();

    ExceptionFile& list_;
    std::uint64_t changes_ = 0;    // begun so far
    std::vector<Change> pending_;  // since the last clearing; the list in memory has their removals
    std::optional<StoreError> failure_;
    const std::shared_ptr<Shared> shared_;  // with the thread
};

}  // namespace tarvin
