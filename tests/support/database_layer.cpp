#include "support/database_layer.h"

#include <sqlite3.h>

namespace tarvin {

struct DatabaseLayer::Vfs {
    sqlite3_vfs own{};
};

namespace {

// Static, since not every callback of SQLite has a parameter for user data.

DatabaseLayer* active = nullptr;
sqlite3_vfs* below = nullptr;

}  // namespace

/// A file, followed in memory by that of the layer below.
struct LayeredFile {
    sqlite3_file base;
    sqlite3_io_methods methods;
    sqlite3_file* real;

    static int before(DatabaseCall call, const void* file) { return active->before(call, file); }

    static sqlite3_file* realOf(sqlite3_file* file) {
        return reinterpret_cast<LayeredFile*>(file)->real;
    }

    /// Makes a call of the layer below unless the hook has it fail.
    template <typename... Parameters>
    static int passOn(DatabaseCall call,
                      int (*sqlite3_io_methods::*method)(sqlite3_file*, Parameters...),
                      sqlite3_file* file, Parameters... arguments) {
        const int failure = before(call, file);
        sqlite3_file* const real = realOf(file);
        return failure != SQLITE_OK ? failure : (real->pMethods->*method)(real, arguments...);
    }
};

namespace {

int closeFile(sqlite3_file* file) {
    static_cast<void>(LayeredFile::before(DatabaseCall::close, file));
    sqlite3_file* const real = LayeredFile::realOf(file);
    return real->pMethods->xClose(real);
}
int readFile(sqlite3_file* file, void* into, int count, sqlite3_int64 offset) {
    return LayeredFile::passOn(DatabaseCall::read, &sqlite3_io_methods::xRead, file, into, count,
                               offset);
}
int writeFile(sqlite3_file* file, const void* from, int count, sqlite3_int64 offset) {
    return LayeredFile::passOn(DatabaseCall::write, &sqlite3_io_methods::xWrite, file, from, count,
                               offset);
}
int truncateFile(sqlite3_file* file, sqlite3_int64 size) {
    return LayeredFile::passOn(DatabaseCall::truncate, &sqlite3_io_methods::xTruncate, file, size);
}
int syncFile(sqlite3_file* file, int flags) {
    return LayeredFile::passOn(DatabaseCall::sync, &sqlite3_io_methods::xSync, file, flags);
}
int sizeOfFile(sqlite3_file* file, sqlite3_int64* size) {
    return LayeredFile::passOn(DatabaseCall::fileSize, &sqlite3_io_methods::xFileSize, file, size);
}
int lockFile(sqlite3_file* file, int level) {
    return LayeredFile::passOn(DatabaseCall::lock, &sqlite3_io_methods::xLock, file, level);
}
int checkReservedLock(sqlite3_file* file, int* result) {
    return LayeredFile::passOn(DatabaseCall::checkReservedLock,
                               &sqlite3_io_methods::xCheckReservedLock, file, result);
}
int unlockFile(sqlite3_file* file, int level) {
    sqlite3_file* const real = LayeredFile::realOf(file);
    return real->pMethods->xUnlock(real, level);
}
int controlFile(sqlite3_file* file, int operation, void* argument) {
    sqlite3_file* const real = LayeredFile::realOf(file);
    return real->pMethods->xFileControl(real, operation, argument);
}
int sectorSizeOf(sqlite3_file* file) {
    sqlite3_file* const real = LayeredFile::realOf(file);
    return real->pMethods->xSectorSize(real);
}
int characteristicsOf(sqlite3_file* file) {
    sqlite3_file* const real = LayeredFile::realOf(file);
    return real->pMethods->xDeviceCharacteristics(real);
}

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    auto* opened = reinterpret_cast<LayeredFile*>(file);
    opened->real = reinterpret_cast<sqlite3_file*>(opened + 1);
    opened->base.pMethods = nullptr;
    if (const int failure = LayeredFile::before(DatabaseCall::open, file)) {
        return failure;
    }
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
    opened->methods.xCheckReservedLock = checkReservedLock;
    opened->methods.xFileControl = controlFile;
    opened->methods.xSectorSize = sectorSizeOf;
    opened->methods.xDeviceCharacteristics = characteristicsOf;
    opened->base.pMethods = &opened->methods;
    return code;
}

int removeFile(sqlite3_vfs*, const char* name, int syncFolder) {
    const DatabaseCall call = syncFolder == 0 ? DatabaseCall::removeUnsynced : DatabaseCall::remove;
    const int failure = LayeredFile::before(call, nullptr);
    return failure != SQLITE_OK ? failure : below->xDelete(below, name, syncFolder);
}

}  // namespace

DatabaseLayer::DatabaseLayer() : vfs_(std::make_unique<Vfs>()) {
    active = this;
    below = sqlite3_vfs_find(nullptr);
    vfs_->own = *below;
    vfs_->own.zName = "test layer";
    vfs_->own.pNext = nullptr;
    vfs_->own.szOsFile = static_cast<int>(sizeof(LayeredFile)) + below->szOsFile;
    vfs_->own.xOpen = openFile;
    vfs_->own.xDelete = removeFile;
    sqlite3_vfs_register(&vfs_->own, 1);
}

DatabaseLayer::~DatabaseLayer() {
    sqlite3_vfs_unregister(&vfs_->own);
    sqlite3_vfs_register(below, 1);
    active = nullptr;
}

}  // namespace tarvin
