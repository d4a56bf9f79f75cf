#pragma once

#include "platform/file_lock.h"
#include "store/sqlite_database.h"
#include "store/store_error.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tarvin {

/// A file of a volume in one state, and what comparisons have found out about its content then. The
/// dates are nanoseconds since 1970.
struct RememberedFile {
    std::uint64_t inode = 0;  ///< at most 2^63 - 1
    std::uint64_t size = 0;   ///< bytes, at most 2^63 - 1
    std::int64_t modified = 0;
    std::int64_t changed = 0;
    std::int64_t created = 0;  ///< 0 if the file system has no such date
    /// The two numbers of FileVersion; 0 if nothing is known.
    std::uint64_t comparison = 0;
    std::uint64_t content = 0;
    std::int64_t seen = 0;  ///< days since 1970; when it was last stored

    bool operator==(const RememberedFile&) const = default;
};

/// What earlier scans have found out by comparing bytes: "scans.sqlite" with "scans.lock" in the
/// data folder, where every other file of the program is, and which only the user can read. It has
/// no names and no paths. Every row is a statement about contents that stays true: it is about a
/// file with exactly these dates.
///
/// An object excludes all others, of any process, so it should live only while it is used. One
/// thread; must not be used across a fork(). Errors are as those of CleanUpJournal: "unusable" if
/// the file is damaged or belongs to another program, otherwise "passing".
class ScanMemory final {
 public:
    struct Limits {
        /// About 100 bytes each on disk. If there are more, the files that were stored longest ago
        /// are dropped, and a sixteenth of the limit with them, so that this is rare.
        std::uint64_t maxFiles = 10'000'000;
        /// Files not stored again for longer are dropped: they were removed or changed.
        std::int64_t maxDays = 180;
        /// How long open() waits for another object.
        std::chrono::milliseconds patience{1000};
    };

    /// Numbers from here on are those of the scan that stores them; add() replaces them.
    static constexpr std::uint64_t firstNewNumber = std::uint64_t{1} << 62U;

    /// Creates a missing folder and file, private to the user. A memory of an older version of the
    /// program is replaced by an empty one.
    static StoreResult<ScanMemory> open(const std::string& folder) {
        return open(folder, Limits{});
    }
    static StoreResult<ScanMemory> open(const std::string& folder, Limits limits);
    /// The same, but creates nothing: nullopt if there is no memory.
    static StoreResult<std::optional<ScanMemory>> openIfThere(const std::string& folder) {
        return openIfThere(folder, Limits{});
    }
    static StoreResult<std::optional<ScanMemory>> openIfThere(const std::string& folder,
                                                              Limits limits);
    /// Removes the memory. Returns whether there was one. Also a damaged one, or one of a newer
    /// version.
    static StoreResult<bool> remove(const std::string& folder) { return remove(folder, Limits{}); }
    static StoreResult<bool> remove(const std::string& folder, Limits limits);
    static std::string pathIn(const std::string& folder);

    ScanMemory(ScanMemory&& other) noexcept = default;
    ScanMemory& operator=(ScanMemory&& other) = delete;
    ScanMemory(const ScanMemory&) = delete;
    ScanMemory& operator=(const ScanMemory&) = delete;
    ~ScanMemory() = default;

    /// Tells memories apart: numbers found in one mean nothing in another.
    [[nodiscard]] std::int64_t generation() const { return generation_; }

    // A volume is any name of files among which inodes are unique.

    /// Fills in the last three fields of those files of a volume that are stored in the same state.
    /// `files` are ascending by inode; several may have the same. On failure some are filled in.
    [[nodiscard]] std::optional<StoreError> find(std::string_view volume,
                                                 std::span<RememberedFile> files);

    // Storing: begin(), any number of add(), commit(); also repeatedly. Nothing is stored unless
    // commit() succeeds.

    /// `newNumbers` is how many numbers the scan has from firstNewNumber on, `today` in days since
    /// 1970.
    void begin(std::uint64_t newNumbers, std::int64_t today);
    /// Stores files of a volume, instead of what is stored under their inodes.
    void add(std::string_view volume, std::span<const RememberedFile> files);
    [[nodiscard]] std::optional<StoreError> commit();

 private:
    /// The memory's own row, besides its generation.
    struct Own {
        std::int64_t next = 1;    // the first number that is not in use
        std::int64_t files = 0;   // at least as many as there are rows of files
        std::int64_t oldest = 0;  // no row was stored on an earlier day, if there are any
    };

    ScanMemory(Limits limits, FileLock lock, std::unique_ptr<SqliteDatabase> database);
    static StoreResult<ScanMemory> openLocked(const std::string& path, Limits limits,
                                              FileLock lock);
    void makeReady();
    void writeOwn(const Own& own);
    [[nodiscard]] std::int64_t sumOf(const Own& own) const;
    [[nodiscard]] std::int64_t volumeNumber(std::string_view name);
    void findBetween(std::int64_t volume, std::span<RememberedFile> files);
    [[nodiscard]] std::int64_t sumOf(std::int64_t volume, const RememberedFile& file) const;
    void dropOld();
    void countFiles();

    Limits limits_;
    FileLock lock_;
    std::unique_ptr<SqliteDatabase> database_;
    std::unique_ptr<SqliteTransaction> storing_;  // between begin() and commit()
    std::int64_t generation_ = 0;
    Own own_;
    Own stored_;  // own_ after commit()
    std::int64_t today_ = 0;
};

}  // namespace tarvin
