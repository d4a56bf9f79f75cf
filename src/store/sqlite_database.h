#pragma once

#include "store/store_error.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace tarvin {

class SqliteDatabase;

/// One run of a statement that its database has prepared and keeps. Reset on destruction, so that
/// it holds no lock. After a failure of the database every call does nothing.
class SqliteStatement final {
 public:
    SqliteStatement(SqliteDatabase& owner, sqlite3_stmt* statement)
        : owner_(owner), statement_(statement) {}
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;
    ~SqliteStatement() { again(); }

    /// Each binds the parameter after the last one that was bound. Bytes are not copied: they must
    /// stay until again() or destruction.
    SqliteStatement& with(std::int64_t number);
    SqliteStatement& with(std::string_view bytes);
    SqliteStatement& withNull();

    /// True if there is a row (or another one) to read; false at the end or after a failure.
    bool step();
    /// Runs a statement without rows to its end.
    void run() { static_cast<void>(step()); }
    /// Back to the beginning, without parameters.
    void again();

    // Of the row that step() found. Null reads as 0 or as no bytes; bytes stay until the next call.
    [[nodiscard]] std::int64_t number(int column) const;
    [[nodiscard]] std::string_view bytes(int column) const;
    [[nodiscard]] bool isNull(int column) const;

 private:
    void expectOk(int code);

    SqliteDatabase& owner_;
    sqlite3_stmt* statement_;  // nullptr if it could not be prepared
    int bound_ = 0;
};

/// A database file of our own. The first failure stays until takeError(), and what is asked for
/// meanwhile does nothing: callers look once, at the end of a sequence. One thread at a time; not
/// across a fork().
class SqliteDatabase final {
 public:
    /// What the first bytes of a file say that begins like a database.
    struct Header {
        std::uint32_t applicationId = 0;
        std::uint32_t userVersion = 0;
    };

    /// Opens an existing file; `path` holds no symbolic link and at most maxPathBytes bytes.
    /// `patience` is how long each call waits for the locks of others.
    SqliteDatabase(const std::string& path, std::chrono::milliseconds patience);
    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;
    ~SqliteDatabase();

    /// Read without a lock and without a look at the journal; nullopt if the file does not begin
    /// like a database.
    [[nodiscard]] std::optional<Header> header();

    /// Runs statements that have no parameters.
    void execute(const char* statements);
    /// The statement of this text, prepared once. `text` must stay where it is. One run of a
    /// statement at a time.
    [[nodiscard]] SqliteStatement statement(const char* text);

    [[nodiscard]] bool ok() const { return !error_; }
    /// Fails with an error of the caller's own.
    void fail(StoreError error);
    /// Fails because what is stored contradicts itself.
    void failDamaged();
    /// The first failure since the last call, if there was one. Rolls back an open transaction
    /// after a failure.
    [[nodiscard]] std::optional<StoreError> takeError();

    /// SQLite's own limit of 512 bytes, less the name of the rollback journal beside the file.
    static constexpr std::size_t maxPathBytes = 504;

 private:
    friend class SqliteStatement;
    /// Keeps the reason if `code` is a failure.
    void expectOk(int code);

    const std::string path_;
    sqlite3* handle_ = nullptr;
    std::map<const char*, sqlite3_stmt*> statements_;
    std::optional<StoreError> error_;
};

/// A transaction that writes: BEGIN IMMEDIATE, so that it never finds out halfway that another
/// process writes. Rolled back on destruction unless it was committed.
class SqliteTransaction final {
 public:
    explicit SqliteTransaction(SqliteDatabase& database);
    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;
    ~SqliteTransaction();

    /// Durable on return if it is nullopt; otherwise nothing has changed.
    [[nodiscard]] std::optional<StoreError> commit();

 private:
    SqliteDatabase& database_;
    bool isOpen_ = true;
};

}  // namespace tarvin
