#pragma once

#include "platform/file_system.h"
#include "platform/linux/trash_calls.h"
#include "platform/linux/trash_names.h"
#include "platform/trash_move.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>

namespace tarvin {

/// The refusal for an error number of a call.
[[nodiscard]] TrashRefusal systemRefusal(int code);

/// `name` in `folder`, as a path.
[[nodiscard]] std::string pathBelow(const std::string& folder, std::string_view name);

/// Room for one portion of the listing of a Trash.
inline constexpr std::size_t trashListingBytes = 256 * 1024;

/// One Trash of the user's, held open. One thread at a time.
///
/// Each of its three folders has to be a real folder and the user's own. Others may look into it,
/// as older Trashes allow, but not change it: who can rename in "files" can put anything in the
/// place of what was moved. Only where the file system keeps no rights of its own (`keepsRights`)
/// are those that it shows not looked at: everybody who may change the Trash there may change the
/// file that is moved, too.
class TrashFolder final {
 public:
    /// Which Trash, and how it is opened.
    struct Request {
        std::string path;  ///< absolute
        std::uint32_t user = 0;
        bool isHome = false;      ///< for the words of a refusal
        bool make = false;        ///< what is missing, for the user alone
        bool keepsRights = true;  ///< whether the file system records whose a file is
        /// The folder above must be a real one with the sticky bit, as the ".Trash" that the users
        /// of a volume share must be.
        bool isShared = false;
    };

    /// The calls have to outlive the object.
    static Result<TrashFolder, TrashRefusal> open(const Request& request, TrashCalls& calls);

    [[nodiscard]] const std::string& path() const { return request_.path; }
    [[nodiscard]] const Descriptor& files() const { return parts_[filesPart].folder; }
    [[nodiscard]] std::uint64_t device() const { return parts_[trashPart].identity.device; }

    /// Whether what stands at its path is still what is open, and still safe.
    [[nodiscard]] bool isIntact() const;

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
    /// An open folder, and what it is known by.
    struct Part {
        Descriptor folder;
        FileIdentity identity;
    };
    enum : std::size_t { trashPart, filesPart, infoPart, partCount };

    TrashFolder(Request request, TrashCalls& calls) : request_(std::move(request)), calls_(calls) {}

    std::optional<TrashRefusal> openParts();
    std::optional<TrashRefusal> openShared(Descriptor& shared) const;
    std::optional<TrashRefusal> openPart(Part& part, int parent, const std::string& name,
                                         const std::string& path);
    [[nodiscard]] std::string sharedPath() const;
    [[nodiscard]] TrashRefusal openRefusal(int code, const std::string& path) const;
    [[nodiscard]] std::optional<TrashRefusal> statusRefusal(const TrashEntryStatus& status,
                                                            const std::string& path) const;
    [[nodiscard]] TrashRefusal moveRefusal(int code, int folder, const char* name) const;
    [[nodiscard]] int writeNote(const std::string& name, std::string_view text) const;
    [[nodiscard]] int readNote(const std::string& name, std::string& text) const;
    void removeNote(const std::string& name) const;
    [[nodiscard]] int moveIn(int from, const char* name, const char* newName) const;
    [[nodiscard]] int moveOut(const char* name, int to, const char* newName) const;
    [[nodiscard]] int moveOverPlaceholder(const char* name, int to, const char* newName) const;

    Request request_;
    TrashCalls& calls_;
    std::array<Part, partCount> parts_;
    std::size_t longestName_ = 0;  ///< of a file in "files"
    TrashNumbers numbers_;
};

}  // namespace tarvin
