#pragma once

#include "platform/file_system.h"
#include "platform/linux/trash_calls.h"
#include "platform/linux/trash_names.h"
#include "platform/linux/trash_parts.h"
#include "platform/trash_move.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tarvin {

/// Bytes of one batch of the listing of a Trash.
inline constexpr std::size_t trashListingBytes = 256 * 1024;

/// One Trash of the user, held open: its .trashinfo files and the moves into and out of it. One
/// thread at a time.
class TrashFolder final {
 public:
    /// `calls` must outlive the object.
    static Result<TrashFolder, TrashRefusal> open(const TrashRequest& request, TrashCalls& calls);

    [[nodiscard]] const std::string& path() const { return parts_.path(); }
    [[nodiscard]] const Descriptor& files() const { return parts_.files(); }

    /// Whether the Trash at the path is still the open one, and still safe.
    [[nodiscard]] bool isIntact() const { return parts_.isIntact(); }

    /// Writes a .trashinfo file with `original` and `date`, and moves the file. Returns its name in
    /// the Trash.
    Result<std::string, TrashRefusal> take(const Descriptor& from, const char* name,
                                           std::string_view original, std::string_view date);

    /// Whether the .trashinfo file of a file in this Trash has this path.
    [[nodiscard]] bool wasAt(const std::string& name, std::string_view original) const;

    /// See `TrashMover::findByPath`. `originals` are paths as a .trashinfo file holds them, with
    /// their numbers.
    [[nodiscard]] Result<std::vector<TrashedFrom>, TrashRefusal> findByPath(
        const std::unordered_map<std::string, std::size_t>& originals) const;

    /// Writes the .trashinfo file of a file in this Trash, unless there is a complete one.
    std::optional<TrashRefusal> repairTrashInfo(const std::string& name, std::string_view original,
                                                std::string_view date);

    /// See `TrashMover::removeUnusedTrashInfos`. `originals` are paths as a .trashinfo file holds
    /// them, `names` those of the files.
    std::optional<TrashRefusal> removeUnusedTrashInfos(
        const std::unordered_set<std::string>& originals, std::span<const std::string_view> names);

    /// Flushes the moves and the .trashinfo files to disk.
    [[nodiscard]] std::optional<TrashRefusal> flush() const;

    /// See `TrashMover::putBack`.
    std::optional<TrashRefusal> giveBack(const std::string& name, const Descriptor& to,
                                         const char* newName);

 private:
    TrashFolder(TrashParts parts, std::size_t maxNameLength, TrashCalls& calls)
        : parts_(std::move(parts)), calls_(calls), maxNameLength_(maxNameLength) {}

    [[nodiscard]] TrashRefusal moveRefusal(int code, int folder, const char* name) const;
    [[nodiscard]] int writeTrashInfo(const std::string& name, std::string_view text) const;
    [[nodiscard]] int readTrashInfo(const std::string& name, std::string& text) const;
    void removeTrashInfo(const std::string& name) const;
    [[nodiscard]] int moveIn(int from, const char* name, const char* newName) const;

    TrashParts parts_;
    TrashCalls& calls_;
    std::size_t maxNameLength_;  ///< of a file in "files"
    TrashNumbers numbers_;
};

}  // namespace tarvin
