#include "scan/exclude_pattern.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <variant>

namespace tarvin {

namespace {

/// The components of a path between its slashes, without empty ones and ".".
std::vector<std::string_view> namesIn(std::string_view path) {
    std::vector<std::string_view> parts;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        const std::string_view part = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (!part.empty() && part != ".") {
            parts.push_back(part);
        }
    }
    return parts;
}

/// The names on the way to an entry: from the folder at which its walk began, which is not one of
/// them, or from the root folder.
std::vector<std::string_view> wayTo(const Directory& folder, std::string_view name,
                                    bool fromRootFolder) {
    std::vector<std::string_view> way{name};
    const Directory* at = &folder;
    for (; at->parent != nullptr; at = at->parent) {
        way.emplace_back(at->name, at->nameLength);
    }
    std::reverse(way.begin(), way.end());
    if (fromRootFolder) {
        const std::vector<std::string_view> before = namesIn({at->name, at->nameLength});
        way.insert(way.begin(), before.begin(), before.end());
    }
    return way;
}

}  // namespace

Result<ExcludePattern, std::string> ExcludePattern::parse(std::string_view pattern) {
    ExcludePattern result;
    std::vector<std::string_view> parts = namesIn(pattern);
    if (pattern.empty()) {
        return std::string(reasonOf(GlobError::empty));
    }
    if (parts.empty()) {
        return std::string("matches no name");
    }
    result.foldersOnly_ = pattern.ends_with('/');
    const std::size_t slash = pattern.find('/');
    const bool isPath = slash != std::string_view::npos &&
                        pattern.find_first_not_of('/', slash) != std::string_view::npos;
    if (isPath) {
        result.from_ = slash == 0 ? From::rootFolder : From::beginOfWalk;
        if (parts.back() == "**") {
            parts.emplace_back("*");
        }
    }
    for (const std::string_view part : parts) {
        if (part == "..") {
            return std::string("'..' matches no name");
        }
        if (isPath && part == "**") {
            result.components_.emplace_back();
            continue;
        }
        auto parsed = Glob::parse(part);
        if (const GlobError* const error = std::get_if<GlobError>(&parsed)) {
            return std::string(reasonOf(*error));
        }
        result.components_.emplace_back(std::get<Glob>(std::move(parsed)));
    }
    return result;
}

bool ExcludePattern::matches(const Directory& folder, std::string_view name, EntryType type) const {
    // The name decides most cases, so few paths have to be built.
    const std::optional<Glob>& last = components_.back();
    if ((foldersOnly_ && type != EntryType::directory) || !last || !last->matches(name)) {
        return false;
    }
    return from_ == From::anywhere || matchesPath(wayTo(folder, name, from_ == From::rootFolder));
}

/// Like Glob::matches(), with "**" in place of "*" and names in place of characters.
bool ExcludePattern::matchesPath(const std::vector<std::string_view>& path) const {
    std::size_t at = 0;
    std::size_t component = 0;
    std::optional<std::size_t> afterStars;
    std::size_t starsEnd = 0;
    while (at < path.size()) {
        if (component < components_.size()) {
            const std::optional<Glob>& glob = components_[component];
            if (!glob) {
                afterStars = ++component;
                starsEnd = at;
                continue;
            }
            if (glob->matches(path[at])) {
                ++component;
                ++at;
                continue;
            }
        }
        if (!afterStars) {
            return false;
        }
        at = ++starsEnd;
        component = *afterStars;
    }
    return component == components_.size();
}

}  // namespace tarvin
