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
#include <unordered_set>
#include <utility>

namespace tarvin {

/// Room for one portion of the listing of a Trash.
inline constexpr std::size_t trashListingBytes = 256 * 1024;

/// One Trash of the user, held open: its .trashinfo files and the moves into and out of it. One
/// thread at a time.
class TrashFolder final {
 public:
    /// `calls` must outlive the object.
    static Result<TrashFolder, TrashRefusal> open(const TrashRequest& request, TrashCalls& calls);

    [[nodiscard]] const std::string& path() const { return parts_.path(); }
    [[nodiscard]] const Descriptor& files() const { return parts_.files(); }

    /// Whether what stands at its path is still what is open, and still safe.
    [[nodiscard]] bool isIntact() const { return parts_.isIntact(); }

    /// Writes a note that tells `original` and `date`, and moves the file. The name it got.
    Result<std::string, TrashRefusal> take(const Descriptor& from, const char* name,
                                           std::string_view original, std::string_view date);

    /// Writes the note of a file that is here, unless it has a whole one.
    std::optional<TrashRefusal> mendNote(const std::string& name, std::string_view original,
                                         std::string_view date);

    /// Takes away the notes that have no file, of those that tell one of the paths, or nothing and
    /// could be of one of them. `originals` are paths as a note has them, `names` those of files.
    std::optional<TrashRefusal> removeUnusedNotes(const std::unordered_set<std::string>& originals,
                                                  std::span<const std::string_view> names);

    /// Brings what was moved, and the notes, to the disk.
    [[nodiscard]] std::optional<TrashRefusal> flush() const;

    /// See `TrashMover::putBack`.
    std::optional<TrashRefusal> giveBack(const std::string& name, const Descriptor& to,
                                         const char* newName);

 private:
    TrashFolder(TrashParts parts, std::size_t longestName, TrashCalls& calls)
        : parts_(std::move(parts)), calls_(calls), longestName_(longestName) {}

    [[nodiscard]] TrashRefusal moveRefusal(int code, int folder, const char* name) const;
    [[nodiscard]] int writeNote(const std::string& name, std::string_view text) const;
    [[nodiscard]] int readNote(const std::string& name, std::string& text) const;
    void removeNote(const std::string& name) const;
    [[nodiscard]] int moveIn(int from, const char* name, const char* newName) const;
    [[nodiscard]] int moveOut(const char* name, int to, const char* newName) const;
    [[nodiscard]] int moveOverPlaceholder(const char* name, int to, const char* newName) const;

    TrashParts parts_;
    TrashCalls& calls_;
    std::size_t longestName_;  ///< of a file in "files"
    TrashNumbers numbers_;
};

}  // namespace tarvin
