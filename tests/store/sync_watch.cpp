#include "store/sync_watch.h"

#include <sqlite3.h>

#include <cstddef>
#include <new>
#include <set>

namespace tarvin {

struct SyncWatch::Layer {
    std::set<const void*> unsynced;
    int closedUnsynced = 0;
    int unsyncedRemovals = 0;
    int syncs = 0;
    sqlite3_vfs vfs{};
};

namespace {

// SQLite's callbacks have no place for a pointer of ours in all of their arguments.

SyncWatch::Layer* watched = nullptr;
sqlite3_vfs* below = nullptr;

/// A file, and behind it in memory the one of the layer below.
struct WatchedFile {
    sqlite3_file base;
    sqlite3_io_methods methods;
    sqlite3_file* real;
};

sqlite3_file* realOf(sqlite3_file* file) {
    return reinterpret_cast<WatchedFile*>(file)->real;
}

int closeFile(sqlite3_file* file) {
    // Once it is closed, nothing flushes it any more.
    watched->closedUnsynced += static_cast<int>(watched->unsynced.erase(file));
    return realOf(file)->pMethods->xClose(realOf(file));
}
int readFile(sqlite3_file* file, void* into, int count, sqlite3_int64 offset) {
    return realOf(file)->pMethods->xRead(realOf(file), into, count, offset);
}
int writeFile(sqlite3_file* file, const void* from, int count, sqlite3_int64 offset) {
    watched->unsynced.insert(file);
    return realOf(file)->pMethods->xWrite(realOf(file), from, count, offset);
}
int truncateFile(sqlite3_file* file, sqlite3_int64 size) {
    watched->unsynced.insert(file);
    return realOf(file)->pMethods->xTruncate(realOf(file), size);
}
int syncFile(sqlite3_file* file, int flags) {
    ++watched->syncs;
    watched->unsynced.erase(file);
    return realOf(file)->pMethods->xSync(realOf(file), flags);
}
int sizeOfFile(sqlite3_file* file, sqlite3_int64* size) {
    return realOf(file)->pMethods->xFileSize(realOf(file), size);
}
int lockFile(sqlite3_file* file, int level) {
    return realOf(file)->pMethods->xLock(realOf(file), level);
}
int unlockFile(sqlite3_file* file, int level) {
    return realOf(file)->pMethods->xUnlock(realOf(file), level);
}
int isReserved(sqlite3_file* file, int* result) {
    return realOf(file)->pMethods->xCheckReservedLock(realOf(file), result);
}
int controlFile(sqlite3_file* file, int operation, void* argument) {
    return realOf(file)->pMethods->xFileControl(realOf(file), operation, argument);
}
int sectorSizeOf(sqlite3_file* file) {
    return realOf(file)->pMethods->xSectorSize(realOf(file));
}
int characteristicsOf(sqlite3_file* file) {
    return realOf(file)->pMethods->xDeviceCharacteristics(realOf(file));
}

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    auto* opened = reinterpret_cast<WatchedFile*>(file);
    opened->real = reinterpret_cast<sqlite3_file*>(opened + 1);
    opened->base.pMethods = nullptr;
    const int code = below->xOpen(below, name, opened->real, flags, outFlags);
    if (opened->real->pMethods == nullptr) {
        return code;
    }
    opened->methods = {};
    opened->methods.iVersion = 1;
    opened->methods.xClose = closeFile;
    opened->methods.xRead = readFile;
    opened->methods.xWrite = writeFile;
    opened->methods.xTruncate = truncateFile;
    opened->methods.xSync = syncFile;
    opened->methods.xFileSize = sizeOfFile;
    opened->methods.xLock = lockFile;
    opened->methods.xUnlock = unlockFile;
    opened->methods.xCheckReservedLock = isReserved;
    opened->methods.xFileControl = controlFile;
    opened->methods.xSectorSize = sectorSizeOf;
    opened->methods.xDeviceCharacteristics = characteristicsOf;
    opened->base.pMethods = &opened->methods;
    return code;
}

int removeFile(sqlite3_vfs*, const char* name, int syncFolder) {
    watched->unsyncedRemovals += syncFolder == 0 ? 1 : 0;
    return below->xDelete(below, name, syncFolder);
}

}  // namespace

SyncWatch::SyncWatch() : layer_(std::make_unique<Layer>()) {
    watched = layer_.get();
    below = sqlite3_vfs_find(nullptr);
    layer_->vfs = *below;
    layer_->vfs.zName = "sync watch";
    layer_->vfs.pNext = nullptr;
    layer_->vfs.szOsFile = static_cast<int>(sizeof(WatchedFile)) + below->szOsFile;
    layer_->vfs.xOpen = openFile;
    layer_->vfs.xDelete = removeFile;
    sqlite3_vfs_register(&layer_->vfs, 1);
}

SyncWatch::~SyncWatch() {
    sqlite3_vfs_unregister(&layer_->vfs);
    sqlite3_vfs_register(below, 1);
    watched = nullptr;
}

int SyncWatch::unsyncedFiles() const {
    return static_cast<int>(layer_->unsynced.size()) + layer_->closedUnsynced +
           layer_->unsyncedRemovals;
}

int SyncWatch::syncs() const {
    return layer_->syncs;
}

}  // namespace tarvin
