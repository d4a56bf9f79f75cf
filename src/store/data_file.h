#pragma once

#include "platform/durable_file.h"
#include "store/property_list.h"
#include "store/store_error.h"

#include <cstdint>
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

class DataFile;

/// The totals of a data file while its folder is locked: what is stored cannot change by others
/// between a look and a change. Ends the lock on destruction; the DataFile must outlive it.
class LockedTotals final {
 public:
    [[nodiscard]] const StoredTotals& stored() const { return stored_; }

    /// Replaces the totals, durably, in the file and in the DataFile's memory. After a failure the
    /// file is as it was, and so is memory.
    [[nodiscard]] std::optional<StoreError> store(const StoredTotals& totals);

 private:
    friend class DataFile;
    LockedTotals(DataFile& owner, std::optional<FolderLock> lock, PropertyList list,
                 const StoredTotals& stored)
        : owner_(&owner), lock_(std::move(lock)), list_(std::move(list)), stored_(stored) {}

    DataFile* owner_;
    std::optional<FolderLock> lock_;  // nullopt without a folder
    PropertyList list_;               // what is stored under other keys is kept
    StoredTotals stored_;
};

/// The lifetime totals of moved files, kept in "data.plist": an XML property list whose root is a
/// dictionary of whole numbers, "deletedCount", "deletedSize" (bytes), and "matchingLevel" (5) and
/// "matchingSize" (2), which are written once and never read. Other keys are kept.
///
/// What is in memory is what the screen shows while the program runs. What is written adds to what
/// the file says at that moment, so that two copies of the program lose nothing of each other. One
/// thread at a time.
class DataFile final {
 public:
    /// `folder` is the application-support folder; it need not exist. None: totals are kept in
    /// memory alone, and nothing fails.
    explicit DataFile(std::optional<std::string> folder);

    /// Reads the file, or makes it, and the folder, with nothing counted yet, as far as that can be
    /// done. A file that cannot be used is left as it is and nothing counts; the answer says why.
    std::optional<StoreError> loadDataFile();

    /// 0 when missing, of another type or beyond 63 bits. A file may say less than nothing.
    [[nodiscard]] std::int64_t alreadyDeletedCount() const { return count_; }
    /// Bytes; 0 when missing, of another type or below zero.
    [[nodiscard]] std::uint64_t alreadyDeletedSize() const { return size_; }

    /// Has memory say what the file says; does nothing if it cannot be read.
    void refresh();

    /// Locks the folder and reads the file, for a change in several steps. A file that is missing
    /// is made, one that cannot be used is given the name "data.plist.unreadable" and made anew,
    /// and both say the totals in memory then. In memory the totals are those of the file from now
    /// on.
    std::variant<LockedTotals, StoreError> lock();

    /// Has memory say more (or less) than what is stored, where that could not be written; until
    /// lock() succeeds. Does not add up with earlier calls.
    void showInMemory(const StoredTotals& totals) {
        count_ = totals.count;
        size_ = totals.size;
    }
    /// Has memory say no less than `before` with so many files and bytes more: they were moved, but
    /// could not be written down where the totals come from. They end at the largest numbers of 63
    /// and 64 bits. Until lock() or refresh() succeeds.
    void showAtLeast(const StoredTotals& before, std::uint64_t count, std::uint64_t size);
    /// What memory says.
    [[nodiscard]] StoredTotals shown() const { return {count_, size_}; }
    /// What memory said before showInMemory().
    [[nodiscard]] const StoredTotals& known() const { return known_; }

    /// The path that the last lock() gave a file of no use; empty if there was none.
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
    StoredTotals known_;  // those of the file, as far as we know
    std::string putAside_;
};

}  // namespace tarvin
