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

/// One execution of a prepared statement, which the database owns. Reset on destruction, which
/// releases its locks. After a failure of the database every call does nothing.
class SqliteStatement final {
 public:
    SqliteStatement(SqliteDatabase& owner, sqlite3_stmt* statement)
        : owner_(owner), statement_(statement) {}
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;
    ~SqliteStatement() { again(); }

    /// Bind the next parameter. Bytes are not copied: they must outlive again() or this object.
    SqliteStatement& with(std::int64_t number);
    SqliteStatement& with(std::string_view bytes);
    SqliteStatement& withNull();

    /// Steps to the next row. Returns false at the end or after a failure.
    bool step();
    /// Runs a statement that returns no rows.
    void run() { static_cast<void>(step()); }
    /// Resets the statement and clears its parameters.
    void again();

    // Columns of the current row. Null reads as 0 or as no bytes; bytes are valid until the next
    // step() or again().
    [[nodiscard]] std::int64_t number(int column) const;
    [[nodiscard]] std::string_view bytes(int column) const;
    [[nodiscard]] bool isNull(int column) const;

 private:
    SqliteDatabase& owner_;
    sqlite3_stmt* statement_;  // nullptr if it could not be prepared
    int bound_ = 0;
};

/// An SQLite database in a file. The first failure is kept until takeError(), and calls in between
/// do nothing, so that callers check once, at the end of a sequence. One thread at a time; must not
/// be used across a fork().
class SqliteDatabase final {
 public:
    /// Identification of the program and schema in the header of a database file.
    struct Header {
        std::uint32_t applicationId = 0;
        std::uint32_t userVersion = 0;
    };

    /// Opens an existing file; `path` must contain no symbolic link and at most maxPathBytes bytes.
    /// `patience` is how long each call waits for locks of other connections.
    SqliteDatabase(const std::string& path, std::chrono::milliseconds patience);
    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;
    ~SqliteDatabase();

    /// Reads without a lock and ignores the rollback journal. Returns nullopt if the file does not
    /// begin with the header of a database.
    [[nodiscard]] std::optional<Header> header();

    /// Runs statements that have no parameters.
    void execute(const char* statements);
    /// Returns the statement of this text, which is prepared once. Cached by the address of `text`,
    /// which must outlive this object. Only one SqliteStatement for each text at a time.
    [[nodiscard]] SqliteStatement statement(const char* text);

    [[nodiscard]] bool ok() const { return !error_; }
    /// Fails with an error of the caller, unless it has failed already.
    void fail(StoreError error);
    /// The same, because the stored data are inconsistent.
    void failDamaged();
    /// Returns the first failure since the last call, if any. After a failure, rolls back an open
    /// transaction.
    [[nodiscard]] std::optional<StoreError> takeError();

    /// SQLite's limit of 512 bytes, less the suffix of the rollback journal.
    static constexpr std::size_t maxPathBytes = 504;

 private:
    friend class SqliteStatement;
    /// Stores the error if `code` is a failure.
    void expectOk(int code);

    const std::string path_;
    sqlite3* handle_ = nullptr;
    std::map<const char*, sqlite3_stmt*> statements_;
    std::optional<StoreError> error_;
};

/// A write transaction: BEGIN IMMEDIATE, so that it cannot fail later because another process
/// writes. Rolled back on destruction unless it was committed.
class SqliteTransaction final {
 public:
    explicit SqliteTransaction(SqliteDatabase& database);
    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;
    ~SqliteTransaction();

    /// Durable on return if it returns nullopt; otherwise nothing has changed.
    [[nodiscard]] std::optional<StoreError> commit();

 private:
    SqliteDatabase& database_;
    bool isOpen_ = true;
};

}  // namespace tarvin
