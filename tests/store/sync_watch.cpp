#include "store/sync_watch.h"

namespace tarvin {

int SyncWatch::before(DatabaseCall call, const void* file) {
    switch (call) {
        case DatabaseCall::write:
        case DatabaseCall::truncate:
            unsynced_.insert(file);
            break;
        case DatabaseCall::sync:
            ++syncs_;
            unsynced_.erase(file);
            break;
        case DatabaseCall::close:
            closedUnsynced_ += static_cast<int>(unsynced_.erase(file));
            break;
        case DatabaseCall::removeUnsynced:
            ++unsyncedRemovals_;
            break;
        case DatabaseCall::open:
        case DatabaseCall::read:
        case DatabaseCall::fileSize:
        case DatabaseCall::lock:
        case DatabaseCall::checkReservedLock:
        case DatabaseCall::remove:
            break;
    }
    return 0;
}

}  // namespace tarvin
