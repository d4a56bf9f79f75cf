#pragma once

#include "platform/result.h"
#include "platform/unique_fd.h"

#include <string>
#include <utility>

namespace tarvin {

/// A folder that only this user can access, held open, so that it stays the same one if its path
/// changes. Any thread.
class PrivateFolder final {
 public:
    /// Opens the folder, and creates it if it is missing; its parent must exist. Fails with EACCES
    /// if it belongs to another user or others can access it. Does not follow a symbolic link.
    static Result<PrivateFolder> open(const std::string& path);

    [[nodiscard]] int number() const { return folder_.number(); }
    /// A short path to the folder, or to an entry in it (below /proc/self/fd); valid during the
    /// lifetime of this object.
    [[nodiscard]] std::string path() const;
    [[nodiscard]] std::string pathOf(const std::string& name) const { return path() + '/' + name; }

 private:
    explicit PrivateFolder(UniqueFd folder) : folder_(std::move(folder)) {}

    UniqueFd folder_;
};

}  // namespace tarvin
