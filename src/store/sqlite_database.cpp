#include "store/sqlite_database.h"

#include "platform/result.h"

#include <sqlite3.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace tarvin {

namespace {

constexpr std::string_view damagedText = "the file is damaged";

// Layout of the header, from the description of the SQLite file format.
constexpr std::string_view magic{"SQLite format 3\0", 16};
constexpr int headerBytes = 100;
constexpr std::size_t userVersionOffset = 60;
constexpr std::size_t applicationIdOffset = 68;

std::uint32_t bigEndianAt(const std::array<unsigned char, headerBytes>& bytes, std::size_t offset) {
    std::uint32_t number = 0;
    for (std::size_t index = 0; index < 4; ++index) {
        number = number << 8U | bytes[offset + index];
    }
    return number;
}

StoreError damaged(const std::string& path) {
    return {path, std::string(damagedText), StoreError::Kind::unusable};
}

StoreError passing(const std::string& path, std::string text) {
    return {path, std::move(text), StoreError::Kind::passing};
}

/// Converts a failure of SQLite. `system` is the errno of a failed system call, otherwise 0.
StoreError reasonOf(const std::string& path, int extendedCode, int system, const char* message) {
    switch (extendedCode) {
        case SQLITE_READONLY_DBMOVED:
            return passing(path, "the file was moved or replaced");
        case SQLITE_IOERR_CORRUPTFS:
            return damaged(path);
        default:
            break;
    }
    switch (extendedCode & 0xFF) {
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        case SQLITE_ERROR:     // a table or a column is missing
        case SQLITE_MISMATCH:  // a value has another type
        case SQLITE_CONSTRAINT:
            return damaged(path);
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return passing(path, "in use by another process");
        case SQLITE_FULL:
            return passing(path, SystemError{ENOSPC}.text());
        case SQLITE_NOMEM:
            return passing(path, SystemError{ENOMEM}.text());
        case SQLITE_READONLY:
            return passing(path, SystemError{EACCES}.text());
        default:
            return passing(path, system != 0 ? SystemError{system}.text() : message);
    }
}

}  // namespace

SqliteStatement& SqliteStatement::with(std::int64_t number) {
    if (owner_.ok()) {
        owner_.expectOk(sqlite3_bind_int64(statement_, ++bound_, number));
    }
    return *this;
}

SqliteStatement& SqliteStatement::with(std::string_view bytes) {
    if (owner_.ok()) {
        // SQLite binds a null pointer as NULL.
        const char* data = bytes.data() == nullptr ? "" : bytes.data();
        owner_.expectOk(
            sqlite3_bind_blob64(statement_, ++bound_, data, bytes.size(), SQLITE_STATIC));
    }
    return *this;
}

SqliteStatement& SqliteStatement::withNull() {
    if (owner_.ok()) {
        owner_.expectOk(sqlite3_bind_null(statement_, ++bound_));
    }
    return *this;
}

bool SqliteStatement::step() {
    if (!owner_.ok()) {
        return false;
    }
    const int code = sqlite3_step(statement_);
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        owner_.expectOk(code);
    }
    return code == SQLITE_ROW;
}

void SqliteStatement::again() {
    if (statement_ != nullptr) {
        // Returns the code of a failed step again; it has been stored already.
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }
    bound_ = 0;
}

std::int64_t SqliteStatement::number(int column) const {
    return sqlite3_column_int64(statement_, column);
}

std::string_view SqliteStatement::bytes(int column) const {
    const auto* data = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
    return data == nullptr ? std::string_view() : std::string_view(data, size);
}

bool SqliteStatement::isNull(int column) const {
    return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

SqliteDatabase::SqliteDatabase(const std::string& path, std::chrono::milliseconds patience)
    : path_(path) {
    // SQLite would fail without an errno.
    if (path.size() > maxPathBytes) {
        fail(passing(path, SystemError{ENAMETOOLONG}.text()));
        return;
    }
    constexpr int flags =
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int code = sqlite3_open_v2(path.c_str(), &handle_, flags, nullptr);
    if (handle_ == nullptr) {
        fail(passing(path, SystemError{ENOMEM}.text()));
        return;
    }
    expectOk(code);
    if (ok() && sqlite3_db_readonly(handle_, "main") == 1) {
        // SQLite falls back to read-only access if the file is not writable.
        fail(passing(path, SystemError{EACCES}.text()));
    }
    if (ok()) {
        sqlite3_busy_timeout(handle_, static_cast<int>(patience.count()));
        // The schema of a damaged or forged file must not execute anything.
        sqlite3_db_config(handle_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
        sqlite3_db_config(handle_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
        sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
        sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    }
}

SqliteDatabase::~SqliteDatabase() {
    for (const auto& [text, statement] : statements_) {
        sqlite3_finalize(statement);
    }
    sqlite3_close(handle_);
}

std::optional<SqliteDatabase::Header> SqliteDatabase::header() {
    // Through SQLite's own descriptor: closing another one would release the POSIX locks that other
    // connections of this process hold on the file.
    sqlite3_file* file = nullptr;
    void* into = static_cast<void*>(&file);
    if (!ok() || sqlite3_file_control(handle_, "main", SQLITE_FCNTL_FILE_POINTER, into) != 0 ||
        file == nullptr || file->pMethods == nullptr) {
        return std::nullopt;
    }
    std::array<unsigned char, headerBytes> bytes{};
    if (file->pMethods->xRead(file, bytes.data(), headerBytes, 0) != SQLITE_OK ||
        std::memcmp(bytes.data(), magic.data(), magic.size()) != 0) {
        return std::nullopt;
    }
    return Header{bigEndianAt(bytes, applicationIdOffset), bigEndianAt(bytes, userVersionOffset)};
}

void SqliteDatabase::execute(const char* statements) {
    if (ok()) {
        expectOk(sqlite3_exec(handle_, statements, nullptr, nullptr, nullptr));
    }
}

SqliteStatement SqliteDatabase::statement(const char* text) {
    sqlite3_stmt*& prepared = statements_[text];
    if (prepared == nullptr && ok()) {
        expectOk(
            sqlite3_prepare_v3(handle_, text, -1, SQLITE_PREPARE_PERSISTENT, &prepared, nullptr));
    }
    return {*this, prepared};
}

void SqliteDatabase::fail(StoreError error) {
    if (!error_) {
        error_ = std::move(error);
    }
}

void SqliteDatabase::failDamaged() {
    fail(damaged(path_));
}

void SqliteDatabase::expectOk(int code) {
    if (code != SQLITE_OK && !error_) {
        const int primary = code & 0xFF;
        const bool isOfSystem = primary == SQLITE_IOERR || primary == SQLITE_CANTOPEN;
        error_ = reasonOf(path_, code, isOfSystem ? sqlite3_system_errno(handle_) : 0,
                          sqlite3_errmsg(handle_));
    }
}

std::optional<StoreError> SqliteDatabase::takeError() {
    if (error_ && handle_ != nullptr && sqlite3_get_autocommit(handle_) == 0) {
        // A failure is ignored: SQLite then rolls back when the file is next opened.
        sqlite3_exec(handle_, "ROLLBACK", nullptr, nullptr, nullptr);
    }
    return std::exchange(error_, std::nullopt);
}

SqliteTransaction::SqliteTransaction(SqliteDatabase& database) : database_(database) {
    database_.execute("BEGIN IMMEDIATE");
}

SqliteTransaction::~SqliteTransaction() {
    if (isOpen_) {
        database_.execute("ROLLBACK");
        // Rolls back after an earlier failure, too, and keeps that failure for the caller.
        if (auto error = database_.takeError()) {
            database_.fail(std::move(*error));
        }
    }
}

std::optional<StoreError> SqliteTransaction::commit() {
    isOpen_ = false;
    database_.execute("COMMIT");
    return database_.takeError();
}

}  // namespace tarvin
