#pragma once

#include "store/store_error.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tarvin {

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

    /// Adds what one run has moved to the totals, here and in the file. They end at the
    /// largest numbers of 63 and 64 bits. A file that cannot be used is given the name
    /// "data.plist.unreadable" first. In memory it counts whether or not the file can be written;
    /// the answer says why not.
    std::optional<StoreError> addDeleted(std::uint64_t count, std::uint64_t size);

    /// The path that the last addDeleted() gave a file of no use; empty if there was none.
    [[nodiscard]] const std::string& putAside() const { return putAside_; }

    /// Empty without a folder.
    [[nodiscard]] const std::string& dataPath() const { return dataPath_; }

 private:
    [[nodiscard]] std::optional<StoreError> store(std::uint64_t count, std::uint64_t size,
                                                  std::int64_t oldCount, std::uint64_t oldSize);
    void makeFirst() const;

    const std::optional<std::string> folder_;
    const std::string dataPath_;
    std::int64_t count_ = 0;
    std::uint64_t size_ = 0;
    std::string putAside_;
};

}  // namespace tarvin
