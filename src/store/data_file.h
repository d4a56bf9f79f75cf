#pragma once

#include "platform/durable_file.h"
#include "store/property_list.h"
#include "store/store_error.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <variant>

namespace tarvin {

/// Lifetime totals of moved files.
struct StoredTotals {
    std::int64_t count = 0;
    std::uint64_t size = 0;  ///< bytes

    bool operator==(const StoredTotals&) const = default;
};

/// Returns `old` plus `more`, at most the largest number.
template <typename Number>
[[nodiscard]] Number raised(Number old, std::uint64_t more) {
    Number sum = 0;
    return __builtin_add_overflow(old, more, &sum) ? std::numeric_limits<Number>::max() : sum;
}

class DataFile;

/// The totals of a data file while its folder is locked, so that no other process changes them
/// between reading and writing. Releases the lock on destruction. The DataFile must outlive it.
class LockedTotals final {
 public:
    [[nodiscard]] const StoredTotals& stored() const { return stored_; }

    /// Replaces the totals in the file, flushed to disk, and in the DataFile. On failure both are
    /// unchanged.
    [[nodiscard]] std::optional<StoreError> store(const StoredTotals& totals);

 private:
    friend class DataFile;
    LockedTotals(DataFile& owner, std::optional<FolderLock> lock, PropertyList list,
                 const StoredTotals& stored)
        : owner_(&owner), lock_(std::move(lock)), list_(std::move(list)), stored_(stored) {}

    DataFile* owner_;
    std::optional<FolderLock> lock_;  // nullopt without a folder
    PropertyList list_;               // with other keys, which are preserved
    StoredTotals stored_;
};

/// The lifetime totals of moved files, stored in "data.plist": an XML property list whose root is a
/// dictionary of integers, "deletedCount", "deletedSize" (bytes), and "matchingLevel" (5) and
/// "matchingSize" (2), which are written once and never read. Other keys are preserved.
///
/// The window shows the totals in memory. Writing adds to what the file holds at that moment, so
/// that instances do not overwrite each other's changes. One thread at a time.
class DataFile final {
 public:
    /// `folder` is the program's data folder, which need not exist. With nullopt the totals are in
    /// memory only, and nothing fails.
    explicit DataFile(std::optional<std::string> folder);

    /// Reads the file. Creates it and the folder, with totals of 0, if they are missing; failures
    /// of that are ignored. An unusable file is left alone, the totals are 0, and the error is
    /// returned.
    std::optional<StoreError> loadDataFile();

    /// 0 if missing, of another type or more than 63 bits. May be negative.
    [[nodiscard]] std::int64_t alreadyDeletedCount() const { return count_; }
    /// Bytes; 0 if missing, of another type or negative.
    [[nodiscard]] std::uint64_t alreadyDeletedSize() const { return size_; }

    /// Reads the totals from the file again; does nothing if it cannot be read.
    void refresh();

    /// Locks the folder and reads the file, for a change in several steps. Creates a missing file
    /// and renames an unusable one to "data.plist.unreadable" before it is replaced; the new file
    /// gets the totals in memory. Afterwards memory and file agree.
    std::variant<LockedTotals, StoreError> lock();

    /// Sets the totals in memory only, if they could not be written; until lock() succeeds.
    void showInMemory(const StoredTotals& totals) {
        count_ = totals.count;
        size_ = totals.size;
    }
    /// Raises the totals in memory to at least `before` plus `count` and `size`, for files that
    /// were moved but could not be recorded; until lock() or refresh() succeeds. Saturates at 63
    /// and 64 bits.
    void showAtLeast(const StoredTotals& before, std::uint64_t count, std::uint64_t size);
    /// The totals in memory.
    [[nodiscard]] StoredTotals shown() const { return {count_, size_}; }
    /// The totals in memory before showInMemory().
    [[nodiscard]] const StoredTotals& known() const { return known_; }

    /// The path to which the last lock() renamed an unusable file; empty if there was none.
    [[nodiscard]] const std::string& putAside() const { return putAside_; }

    /// Empty without a folder.
    [[nodiscard]] const std::string& dataPath() const { return dataPath_; }

 private:
    friend class LockedTotals;

    void remember(const StoredTotals& totals);
    void makeFirst() const;

    const std::optional<std::string> folder_;
    const std::string dataPath_;
    std::int64_t count_ = 0;
    std::uint64_t size_ = 0;
    StoredTotals known_;  // those of the file when it was read or written last
    std::string putAside_;
};

}  // namespace tarvin
