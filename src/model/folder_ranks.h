#pragma once

#include "model/file.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarvin {

/// What the folders of a rule say about the files of one folder.
struct FolderRank {
    static constexpr std::uint32_t notPreferred = std::numeric_limits<std::uint32_t>::max();

    /// The smallest position of a preferred folder that holds it; the smaller, the better.
    std::uint32_t preference = notPreferred;
    bool isProtected = false;  ///< a protected folder holds it

    bool operator==(const FolderRank&) const = default;
};

/// The preferred and protected folders of a rule. A folder holds itself and every folder below it.
/// Paths are compared component by component and byte for byte, so "/a/b" does not hold "/a/bc";
/// links are not resolved. A folder added by its identity holds the folders of a scan that have
/// this identity, whatever their names, and those below them. One thread at a time.
///
/// Each folder of a scan is ranked once and remembered, so the cost of a file depends neither on
/// the number of folders in the rule nor on the length of its path.
class FolderRanks final {
 public:
    /// Adds an absolute path, native bytes; slashes at its end are ignored, and "/" holds
    /// everything. If a path is added twice, the smaller position counts. Before the first
    /// rankOf().
    void prefer(std::string_view path, std::uint32_t position);
    void protect(std::string_view path);
    /// The same for an identity. Ignores the unknown identity, inode 0.
    void prefer(const FileIdentity& identity, std::uint32_t position);
    void protect(const FileIdentity& identity);

    /// Whether no folder was added: every rank is the default one.
    [[nodiscard]] bool isEmpty() const { return nodes_.empty() && identities_.empty(); }

    /// `directory` and its parents must outlive this object.
    [[nodiscard]] FolderRank rankOf(const Directory& directory);

 private:
    struct NameHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const noexcept {
            return std::hash<std::string_view>{}(name);
        }
    };
    /// A component of the added paths.
    struct Node {
        std::unordered_map<std::string, std::uint32_t, NameHash, std::equal_to<>> children;
        FolderRank rank;  ///< of the folder itself, without those above it
    };
    /// Where a path leads in the tree of nodes.
    struct Place {
        std::uint32_t node = 0;  ///< or `outside`
        FolderRank rank;
    };
    static constexpr std::uint32_t outside = std::numeric_limits<std::uint32_t>::max();

    Node& nodeOf(std::string_view path);
    [[nodiscard]] Place below(Place place, std::string_view name) const;
    [[nodiscard]] Place placeOfRoot(std::string_view path) const;
    /// Adds what the directory's identity says, and remembers the result.
    Place remember(const Directory& directory, Place place);

    std::vector<Node> nodes_;  ///< the first is "/"
    std::unordered_map<FileIdentity, FolderRank, FileIdentityHash> identities_;
    std::unordered_map<const Directory*, Place> places_;
    std::vector<const Directory*> unknown_;  ///< kept for its memory
    const Directory* last_ = nullptr;        ///< the files of a set are often in one folder
    FolderRank lastRank_;
};

}  // namespace tarvin
