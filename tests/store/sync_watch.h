#pragma once

#include "support/database_layer.h"

#include <set>

namespace tarvin {

/// Counts what SQLite has written and not synced. As a DatabaseLayer, only one at a time, created
/// before and destroyed after the databases.
class SyncWatch final : public DatabaseLayer {
 public:
    /// Files written or truncated since their last sync, and names removed without a sync of their
    /// folder.
    [[nodiscard]] int unsyncedFiles() const {
        return static_cast<int>(unsynced_.size()) + closedUnsynced_ + unsyncedRemovals_;
    }
    /// Syncs of files so far.
    [[nodiscard]] int syncs() const { return syncs_; }

 private:
    int before(DatabaseCall call, const void* file) override;

    std::set<const void*> unsynced_;
    int closedUnsynced_ = 0;  // never synced any more
    int unsyncedRemovals_ = 0;
    int syncs_ = 0;
};

}  // namespace tarvin
