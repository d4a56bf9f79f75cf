#pragma once

#include "model/file.h"
#include "platform/file_system.h"
#include "scan/category_lists.h"

#include <cstddef>
#include <functional>
#include <string_view>
#include <unordered_set>

namespace tarvin {

/// The files that a collection has taken, by the identity of their folder and their name: a file
/// that is given by name may also be in a folder that is walked, or be given by another path of its
/// folder. Hard links are different files. About 60 bytes for each file. One thread.
class TakenFiles final {
 public:
    /// Begins with the files collected so far.
    explicit TakenFiles(CategoryLists& collected);

    /// The identity of `folder` must be known.
    [[nodiscard]] bool contains(const Directory& folder, std::string_view name) const {
        return files_.contains({folder.identity, name});
    }
    /// The file must outlive this object.
    void add(const File& file) { files_.insert({file.directory()->identity, file.fileName()}); }

 private:
    struct Entry {
        FileIdentity folder;
        std::string_view name;

        bool operator==(const Entry&) const = default;
    };

    struct Hash {
        std::size_t operator()(const Entry& entry) const {
            return FileIdentityHash()(entry.folder) ^ std::hash<std::string_view>()(entry.name);
        }
    };

    std::unordered_set<Entry, Hash> files_;
};

}  // namespace tarvin
