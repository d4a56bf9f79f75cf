#pragma once

#include "store/store_error.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// The list of excluded files: absolute paths in the order in which they were added.
struct ExceptionList {
    std::vector<std::string> paths;
    std::optional<StoreError> error;  ///< `paths` is empty then
};

/// Reads an exceptions list of up to 256 MiB: an XML or binary property list whose root is an array
/// of paths. A path is a string, or data if it is not UTF-8 or XML cannot represent it. Other
/// elements are skipped, and lost when the list is written again. Writes nothing. Any thread.
ExceptionList readExceptionFile(const std::string& path);

/// Removes these paths, and no others, from the list that is stored in `folder`: from what the file
/// holds at that moment. Writes nothing if it has none of them. On failure the file has not
/// changed; an unusable one is left alone. Blocks while another thread or process writes, for at
/// most ten seconds. Any thread.
[[nodiscard]] std::optional<StoreError> removeStoredExceptions(
    const std::string& folder, const std::vector<std::string>& paths);

/// What writing the stored list has done.
struct ExceptionWrite {
    std::optional<StoreError> failure;
    std::string putAside;  ///< the path to which an unusable file was renamed; empty if none was
};

/// Adds these paths, without duplicates, to the list that is stored in `folder`: to what the file
/// holds at that moment. If there is no usable file, `all` is called on this thread, and what it
/// returns is written before them; an unusable file is renamed first. Blocks as removing does. Any
/// thread.
[[nodiscard]] ExceptionWrite addStoredExceptions(
    const std::string& folder, const std::vector<std::string>& added,
    const std::function<std::vector<std::string>()>& all);

/// Empties the list that is stored in `folder`. Blocks as removing does. Any thread.
[[nodiscard]] ExceptionWrite clearStoredExceptions(const std::string& folder);

/// The user's exceptions list, stored in "exception.plist". The window shows, and a scan uses, the
/// list in memory. Writing adds to what the file holds at that moment, so that instances do not
/// overwrite each other's changes. One thread at a time.
class ExceptionFile final {
 public:
    /// `folder` is the program's data folder, which need not exist. With nullopt the list is in
    /// memory only, and nothing fails.
    explicit ExceptionFile(std::optional<std::string> folder);

    /// Reads the file, if it exists. If it is unusable, it is left alone, the list is empty, and
    /// the error is returned.
    std::optional<StoreError> load();

    [[nodiscard]] const std::vector<std::string>& exceptionArrayData() const { return paths_; }

    /// Appends paths in memory and in the file, without duplicates. What another instance has
    /// removed from the file stays removed there. Renames an unusable file to
    /// "exception.plist.unreadable" first; then, and if there is no file, all paths in memory are
    /// written. The paths are in memory also if the file cannot be written; then the error is
    /// returned, and the next addition writes them, too.
    std::optional<StoreError> addExceptions(const std::vector<std::string>& paths);

    /// Clears the list in memory and in the file.
    std::optional<StoreError> removeExceptions();

    /// Removes these paths, and no others, in memory and in the file. Paths that another instance
    /// has added stay in the file. If the file cannot be read or written, nothing is removed and
    /// the error is returned; an unusable file is left alone.
    std::optional<StoreError> removeExceptions(const std::vector<std::string>& paths);

    // In memory only, for an owner who changes the file by the functions above.

    /// Appends paths without duplicates.
    void include(const std::vector<std::string>& paths);
    void forget(const std::vector<std::string>& paths);
    void forgetAll();

    [[nodiscard]] const std::optional<std::string>& folder() const { return folder_; }
    /// Empty without a folder.
    [[nodiscard]] const std::string& path() const { return path_; }
    /// The path to which the last write renamed an unusable file; empty if there was none.
    [[nodiscard]] const std::string& putAside() const { return putAside_; }

 private:
    const std::optional<std::string> folder_;
    const std::string path_;
    std::vector<std::string> paths_;
    bool hasRepeats_ = false;           // `paths_` may have, as the file had; until an addition
    std::vector<std::string> unsaved_;  // added, but not written yet
    std::string putAside_;
};

}  // namespace tarvin
