#pragma once

#include "model/file.h"
#include "platform/result.h"

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tarvin {

/// A location that could not be read, and why.
struct UnreadableLocation {
    std::string path;
    SystemError error;
    bool isTrash = false;    ///< in a Trash folder, which is never walked
    bool isFolder = true;    ///< false for a file, or if it is not known
    bool isSpecial = false;  ///< neither a folder nor a regular file
};

/// A folder or file that a scan could not list, open or read, and why.
struct Unreadable {
    std::string path;  ///< absolute, native bytes
    bool isFolder = false;
    SystemError error;        ///< not if it has changed
    bool hasChanged = false;  ///< a file that changed while the scan used it

    bool operator==(const Unreadable&) const = default;
};

/// Why it could not be read, for a message: "changed while it was read", or the system's text.
[[nodiscard]] std::string reasonOf(const Unreadable& unreadable);

/// All unreadable folders and files of a scan.
struct UnreadableReport {
    std::uint64_t folders = 0;
    std::uint64_t files = 0;
    /// The files among them that had been collected but could not be compared.
    std::uint64_t collectedFiles = 0;
    /// Folders first, then files, each sorted by path. At most UnreadableLog::maxKept; the counts
    /// above are exact.
    std::vector<Unreadable> kept;

    [[nodiscard]] std::uint64_t total() const { return folders + files; }
};

/// Logs what the threads of a scan cannot read. Any thread. The logged folders must exist until
/// report() has returned.
///
/// Every collected file that could not be compared is logged, also one that was removed, replaced
/// or changed since it was collected: the result counts it as found, and if a drive was taken out,
/// this is all that tells. So is a folder that was removed before it could be listed. An entry that
/// was removed before it was collected, or a folder that was replaced by a file or link, is not:
/// the scan never had it, and what is there now is of a type that scans skip.
class UnreadableLog final {
 public:
    /// Maximum number of paths kept, about 10 MB. Further failures are only counted.
    static constexpr std::size_t maxKept = 100'000;

    UnreadableLog() = default;
    UnreadableLog(const UnreadableLog&) = delete;
    UnreadableLog& operator=(const UnreadableLog&) = delete;

    /// Ignores an error that says that it is not a folder any more.
    void addFolder(const Directory& folder, SystemError error);
    /// For an entry that was not collected. Ignores an error that says that it is gone or replaced.
    void addFile(const Directory& folder, std::string_view name, SystemError error);
    /// For a collected file. Counts it once, even if several threads fail to read it. An error that
    /// says that something else is at its path means a change.
    void addFile(const File& file, SystemError error);
    /// For a collected file that changed while it was read. Counts it once, as addFile() does.
    void addChanged(const File& file);

    [[nodiscard]] UnreadableReport report() const;

 private:
    struct Entry {
        const Directory* folder;
        std::string name;  // empty for the folder itself
        SystemError error;
        bool hasChanged;
    };

    void addCollected(const File& file, SystemError error, bool hasChanged);
    // Requires mutex_.
    void addEntry(const Directory& folder, std::string_view name, SystemError error,
                  bool hasChanged = false);

    mutable std::mutex mutex_;
    std::vector<Entry> entries_;                 // guarded by mutex_
    std::uint64_t folders_ = 0;                  // guarded by mutex_
    std::uint64_t files_ = 0;                    // guarded by mutex_
    std::unordered_set<const File*> collected_;  // guarded by mutex_
};

}  // namespace tarvin
