#pragma once

#include <memory>

namespace tarvin {

/// Watches what SQLite writes, as long as it lives: databases that are opened meanwhile go through
/// it. One at a time, and to be made before and destroyed after those databases.
class SyncWatch final {
 public:
    SyncWatch();
    SyncWatch(const SyncWatch&) = delete;
    SyncWatch& operator=(const SyncWatch&) = delete;
    ~SyncWatch();

    /// How many files were written or truncated after they were last flushed to the disk, and how
    /// many names were removed without a flush of their folder.
    [[nodiscard]] int unsyncedFiles() const;
    /// How often a file was flushed so far.
    [[nodiscard]] int syncs() const;

    struct Layer;

 private:
    std::unique_ptr<Layer> layer_;
};

}  // namespace tarvin
