#pragma once

#include "platform/result.h"
#include "platform/unique_fd.h"

#include <string>
#include <utility>

namespace tarvin {

/// A folder that this user alone can look into and change, held open, so that it stays the same one
/// whatever happens to its name. Any thread.
class PrivateFolder final {
 public:
    /// Opens the folder, made if it is missing; the one above it must be there. Refuses one that
    /// belongs to somebody else or that others may enter, and a link in its place, with EACCES or
    /// the system's reason.
    static Result<PrivateFolder> open(const std::string& path);

    [[nodiscard]] int number() const { return folder_.number(); }
    /// A path to the folder, or to an entry in it, that is good while this object is. Short,
    /// however deep the folder lies.
    [[nodiscard]] std::string path() const;
    [[nodiscard]] std::string pathOf(const std::string& name) const { return path() + '/' + name; }

 private:
    explicit PrivateFolder(UniqueFd folder) : folder_(std::move(folder)) {}

    UniqueFd folder_;
};

}  // namespace tarvin
