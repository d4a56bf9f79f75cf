#pragma once

#include "store/store_error.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// The list of files that no scan takes: absolute paths in the order in which they were added.
struct ExceptionList {
    std::vector<std::string> paths;
    std::optional<StoreError> error;  ///< `paths` is empty then
};

/// Reads an exception file of up to 256 MiB: a property list, XML or binary, whose root is an array
/// of paths. A path is a string; one whose bytes are not UTF-8, or that XML cannot hold as it is,
/// is data with exactly these bytes. What else the array holds is passed over, and not kept when
/// the list is written again. Nothing is written here.
/// Any thread.
ExceptionList readExceptionFile(const std::string& path);

/// The person's own exception list, kept in "exception.plist". What is in memory is what the screen
/// shows and the scan uses while the program runs. What is written joins what the file says at that
/// moment, so that two copies of the program lose nothing of each other. One thread at a time.
class ExceptionFile final {
 public:
    /// `folder` is the application-support folder; it need not exist. None: the list is kept in
    /// memory alone, and nothing fails.
    explicit ExceptionFile(std::optional<std::string> folder);

    /// Reads the file, if there is one. One that cannot be used is left as it is and the list is
    /// empty; the answer says why.
    std::optional<StoreError> load();

    [[nodiscard]] const std::vector<std::string>& exceptionArrayData() const { return paths_; }

    /// Puts paths at the end, here and in the file; each path stands once, at its first place. A
    /// file that cannot be used is given the name "exception.plist.unreadable" first. In memory
    /// they count whether or not the file can be written; the answer says why not.
    std::optional<StoreError> addExceptions(const std::vector<std::string>& paths);

    /// Empties the list, here and in the file.
    std::optional<StoreError> removeExceptions();

    /// Empty without a folder.
    [[nodiscard]] const std::string& path() const { return path_; }
    /// The path that the last writing gave a file of no use; empty if there was none.
    [[nodiscard]] const std::string& putAside() const { return putAside_; }

 private:
    enum class Keep : std::uint8_t { whatIsStored, nothing };

    [[nodiscard]] std::optional<StoreError> store(Keep keep);

    const std::optional<std::string> folder_;
    const std::string path_;
    std::vector<std::string> paths_;
    std::string putAside_;
};

}  // namespace tarvin
