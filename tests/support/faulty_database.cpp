#include "support/faulty_database.h"

#include <sqlite3.h>

#include <optional>

namespace tarvin {

struct FaultyDatabase::Layer {
    std::optional<std::size_t> left;  // calls before the one that fails
    Fault fault = Fault::device;
    bool hasFailed = false;
    sqlite3_vfs vfs{};
};

namespace {

// SQLite's callbacks have no place for a pointer of ours in all of their arguments.

FaultyDatabase::Layer* faulty = nullptr;
sqlite3_vfs* beneath = nullptr;

/// A file, and behind it in memory the one of the layer below.
struct FaultyFile {
    sqlite3_file base;
    sqlite3_io_methods methods;
    sqlite3_file* real;
};

sqlite3_file* below(sqlite3_file* file) {
    return reinterpret_cast<FaultyFile*>(file)->real;
}

/// The code of a failure if it is this call's turn.
std::optional<int> failure(int code, bool takesRoom) {
    const bool isFull = faulty->fault == FaultyDatabase::Fault::full;
    if (!faulty->left || (isFull && !takesRoom)) {
        return std::nullopt;
    }
    if (*faulty->left > 0) {
        --*faulty->left;
        return std::nullopt;
    }
    faulty->left.reset();
    faulty->hasFailed = true;
    return isFull ? SQLITE_FULL : code;
}

int closeIt(sqlite3_file* file) {
    return below(file)->pMethods->xClose(below(file));
}
int readIt(sqlite3_file* file, void* into, int count, sqlite3_int64 offset) {
    const auto failed = failure(SQLITE_IOERR_READ, false);
    return failed ? *failed : below(file)->pMethods->xRead(below(file), into, count, offset);
}
int writeIt(sqlite3_file* file, const void* from, int count, sqlite3_int64 offset) {
    const auto failed = failure(SQLITE_IOERR_WRITE, true);
    return failed ? *failed : below(file)->pMethods->xWrite(below(file), from, count, offset);
}
int truncateIt(sqlite3_file* file, sqlite3_int64 size) {
    const auto failed = failure(SQLITE_IOERR_TRUNCATE, false);
    return failed ? *failed : below(file)->pMethods->xTruncate(below(file), size);
}
int flushIt(sqlite3_file* file, int flags) {
    const auto failed = failure(SQLITE_IOERR_FSYNC, true);
    return failed ? *failed : below(file)->pMethods->xSync(below(file), flags);
}
int measureIt(sqlite3_file* file, sqlite3_int64* size) {
    const auto failed = failure(SQLITE_IOERR_FSTAT, false);
    return failed ? *failed : below(file)->pMethods->xFileSize(below(file), size);
}
int lockIt(sqlite3_file* file, int level) {
    const auto failed = failure(SQLITE_IOERR_LOCK, false);
    return failed ? *failed : below(file)->pMethods->xLock(below(file), level);
}
int unlockIt(sqlite3_file* file, int level) {
    return below(file)->pMethods->xUnlock(below(file), level);
}
int askForLock(sqlite3_file* file, int* result) {
    const auto failed = failure(SQLITE_IOERR_CHECKRESERVEDLOCK, false);
    return failed ? *failed : below(file)->pMethods->xCheckReservedLock(below(file), result);
}
int controlIt(sqlite3_file* file, int operation, void* argument) {
    return below(file)->pMethods->xFileControl(below(file), operation, argument);
}
int sectorSize(sqlite3_file* file) {
    return below(file)->pMethods->xSectorSize(below(file));
}
int characteristics(sqlite3_file* file) {
    return below(file)->pMethods->xDeviceCharacteristics(below(file));
}

int openIt(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    auto* opened = reinterpret_cast<FaultyFile*>(file);
    opened->real = reinterpret_cast<sqlite3_file*>(opened + 1);
    opened->base.pMethods = nullptr;
    if (const auto failed = failure(SQLITE_CANTOPEN, true)) {
        return *failed;
    }
    const int code = beneath->xOpen(beneath, name, opened->real, flags, outFlags);
    if (opened->real->pMethods == nullptr) {
        return code;
    }
    opened->methods = {};
    opened->methods.iVersion = 1;
    opened->methods.xClose = closeIt;
    opened->methods.xRead = readIt;
    opened->methods.xWrite = writeIt;
    opened->methods.xTruncate = truncateIt;
    opened->methods.xSync = flushIt;
    opened->methods.xFileSize = measureIt;
    opened->methods.xLock = lockIt;
    opened->methods.xUnlock = unlockIt;
    opened->methods.xCheckReservedLock = askForLock;
    opened->methods.xFileControl = controlIt;
    opened->methods.xSectorSize = sectorSize;
    opened->methods.xDeviceCharacteristics = characteristics;
    opened->base.pMethods = &opened->methods;
    return code;
}

}  // namespace

FaultyDatabase::FaultyDatabase() : layer_(std::make_unique<Layer>()) {
    faulty = layer_.get();
    beneath = sqlite3_vfs_find(nullptr);
    layer_->vfs = *beneath;
    layer_->vfs.zName = "faulty";
    layer_->vfs.pNext = nullptr;
    layer_->vfs.szOsFile = static_cast<int>(sizeof(FaultyFile)) + beneath->szOsFile;
    layer_->vfs.xOpen = openIt;
    sqlite3_vfs_register(&layer_->vfs, 1);
}

FaultyDatabase::~FaultyDatabase() {
    sqlite3_vfs_unregister(&layer_->vfs);
    sqlite3_vfs_register(beneath, 1);
    faulty = nullptr;
}

void FaultyDatabase::failOnce(std::size_t number, Fault fault) {
    layer_->left = number;
    layer_->fault = fault;
    layer_->hasFailed = false;
}

bool FaultyDatabase::hasFailed() const {
    return layer_->hasFailed;
}

void FaultyDatabase::heal() {
    layer_->left.reset();
}

}  // namespace tarvin
