#pragma once

#include "model/file.h"
#include "platform/file_system.h"
#include "platform/result.h"
#include "text/glob.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// A pattern of files and folders that a scan skips. Without a slash it is a Glob for the name of a
/// file or folder at any depth: "*.tmp". With one it is for the path from the folder at which the
/// walk began, "raw/*.tif" or "./raw", or, if it begins with a slash, for the absolute path. Each
/// component matches one name; the component "**" stands for any number of folders, and at the end
/// for everything inside. A slash at the end restricts the pattern to folders. Immutable. Any
/// thread.
class ExcludePattern final {
 public:
    /// Returns the reason, for a message, if the pattern is invalid.
    [[nodiscard]] static Result<ExcludePattern, std::string> parse(std::string_view pattern);

    /// Whether the pattern matches the entry `name` of `folder`. An entry of unknown type is not
    /// matched by a pattern for folders.
    [[nodiscard]] bool matches(const Directory& folder, std::string_view name,
                               EntryType type) const;

 private:
    enum class From : std::uint8_t { anywhere, beginOfWalk, rootFolder };

    ExcludePattern() = default;
    [[nodiscard]] bool matchesPath(const std::vector<std::string_view>& path) const;

    From from_ = From::anywhere;
    bool foldersOnly_ = false;
    // nullopt is "**". The last one is never that.
    std::vector<std::optional<Glob>> components_;
};

}  // namespace tarvin
