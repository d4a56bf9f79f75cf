#include "model/folder_ranks.h"

#include <algorithm>
#include <cstddef>

namespace tarvin {

namespace {

/// Removes and returns the first component of a path; empty at its end.
std::string_view takeComponent(std::string_view& path) {
    path.remove_prefix(std::min(path.find_first_not_of('/'), path.size()));
    const std::string_view component = path.substr(0, path.find('/'));
    path.remove_prefix(component.size());
    return component;
}

FolderRank joined(const FolderRank& one, const FolderRank& other) {
    return {std::min(one.preference, other.preference), one.isProtected || other.isProtected};
}

}  // namespace

void FolderRanks::prefer(std::string_view path, std::uint32_t position) {
    FolderRank& rank = nodeOf(path).rank;
    rank.preference = std::min(rank.preference, position);
}

void FolderRanks::protect(std::string_view path) {
    nodeOf(path).rank.isProtected = true;
}

void FolderRanks::prefer(const FileIdentity& identity, std::uint32_t position) {
    if (identity.inode != 0) {
        FolderRank& rank = identities_[identity];
        rank.preference = std::min(rank.preference, position);
    }
}

void FolderRanks::protect(const FileIdentity& identity) {
    if (identity.inode != 0) {
        identities_[identity].isProtected = true;
    }
}

FolderRank FolderRanks::rankOf(const Directory& directory) {
    if (isEmpty()) {
        return {};
    }
    if (&directory == last_) {
        return lastRank_;
    }
    // Without recursion: a tree may have thousands of levels.
    unknown_.clear();
    Place place;
    for (const Directory* at = &directory;; at = at->parent) {
        if (const auto known = places_.find(at); known != places_.end()) {
            place = known->second;
            break;
        }
        if (at->parent == nullptr) {
            place = remember(*at, placeOfRoot({at->name, at->nameLength}));
            break;
        }
        unknown_.push_back(at);
    }
    for (; !unknown_.empty(); unknown_.pop_back()) {
        const Directory* const at = unknown_.back();
        place = remember(*at, below(place, {at->name, at->nameLength}));
    }
    last_ = &directory;
    lastRank_ = place.rank;
    return lastRank_;
}

FolderRanks::Node& FolderRanks::nodeOf(std::string_view path) {
    if (nodes_.empty()) {
        nodes_.emplace_back();
    }
    std::size_t at = 0;
    for (std::string_view name = takeComponent(path); !name.empty(); name = takeComponent(path)) {
        const auto next = static_cast<std::uint32_t>(nodes_.size());
        const auto [child, isNew] = nodes_[at].children.try_emplace(std::string(name), next);
        at = child->second;
        if (isNew) {
            nodes_.emplace_back();
        }
    }
    return nodes_[at];
}

FolderRanks::Place FolderRanks::below(Place place, std::string_view name) const {
    if (place.node == outside) {
        return place;
    }
    const Node& node = nodes_[place.node];
    const auto child = node.children.find(name);
    if (child == node.children.end()) {
        return {outside, place.rank};
    }
    return {child->second, joined(place.rank, nodes_[child->second].rank)};
}

FolderRanks::Place FolderRanks::placeOfRoot(std::string_view path) const {
    if (nodes_.empty()) {
        return {outside, {}};
    }
    Place place{0, nodes_.front().rank};
    for (std::string_view name = takeComponent(path); !name.empty(); name = takeComponent(path)) {
        place = below(place, name);
    }
    return place;
}

FolderRanks::Place FolderRanks::remember(const Directory& directory, Place place) {
    if (const auto added = identities_.find(directory.identity); added != identities_.end()) {
        place.rank = joined(place.rank, added->second);
    }
    places_.emplace(&directory, place);
    return place;
}

}  // namespace tarvin
