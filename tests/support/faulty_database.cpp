#include "support/faulty_database.h"

#include <sqlite3.h>

namespace tarvin {

namespace {

/// The code of SQLite for a failed call; 0 for calls that never fail here.
int deviceFailureOf(DatabaseCall call) {
    switch (call) {
        case DatabaseCall::open:
            return SQLITE_CANTOPEN;
        case DatabaseCall::read:
            return SQLITE_IOERR_READ;
        case DatabaseCall::write:
            return SQLITE_IOERR_WRITE;
        case DatabaseCall::truncate:
            return SQLITE_IOERR_TRUNCATE;
        case DatabaseCall::sync:
            return SQLITE_IOERR_FSYNC;
        case DatabaseCall::fileSize:
            return SQLITE_IOERR_FSTAT;
        case DatabaseCall::lock:
            return SQLITE_IOERR_LOCK;
        case DatabaseCall::checkReservedLock:
            return SQLITE_IOERR_CHECKRESERVEDLOCK;
        case DatabaseCall::close:
        case DatabaseCall::remove:
        case DatabaseCall::removeUnsynced:
            break;
    }
    return SQLITE_OK;
}

int failureOf(DatabaseCall call, FaultyDatabase::Fault fault) {
    if (fault == FaultyDatabase::Fault::device) {
        return deviceFailureOf(call);
    }
    const bool allocates =
        call == DatabaseCall::open || call == DatabaseCall::write || call == DatabaseCall::sync;
    return allocates ? SQLITE_FULL : SQLITE_OK;
}

}  // namespace

void FaultyDatabase::failOnce(std::size_t number, Fault fault) {
    left_ = number;
    fault_ = fault;
    hasFailed_ = false;
}

int FaultyDatabase::before(DatabaseCall call, const void*) {
    const int failure = failureOf(call, fault_);
    if (!left_ || failure == SQLITE_OK) {
        return SQLITE_OK;
    }
    if (*left_ > 0) {
        --*left_;
        return SQLITE_OK;
    }
    left_.reset();
    hasFailed_ = true;
    return failure;
}

}  // namespace tarvin
