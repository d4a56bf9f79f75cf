#pragma once

#include <memory>

namespace tarvin {

/// What SQLite does with a file of a database.
enum class DatabaseCall {
    open,
    close,
    read,
    write,
    truncate,
    sync,
    fileSize,
    lock,
    checkReservedLock,
    remove,
    removeUnsynced  ///< without a sync of the folder
};

/// A pass-through layer between SQLite and the file system, for databases opened during its
/// lifetime. Only one at a time, created before and destroyed after those databases. Called on the
/// thread that uses the database.
class DatabaseLayer {
 public:
    DatabaseLayer(const DatabaseLayer&) = delete;
    DatabaseLayer& operator=(const DatabaseLayer&) = delete;
    virtual ~DatabaseLayer();

 protected:
    DatabaseLayer();

    /// Called before each call. Returns 0 (SQLITE_OK) to let it through, or the code that it fails
    /// with instead; a `close` is made in any case. `file` identifies an open file; it is nullptr
    /// for `remove` and `removeUnsynced`.
    virtual int before(DatabaseCall call, const void* file) = 0;

 private:
    friend struct LayeredFile;

    struct Vfs;
    const std::unique_ptr<Vfs> vfs_;
};

}  // namespace tarvin
