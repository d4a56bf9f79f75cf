#pragma once

#include "platform/file_system.h"
#include "platform/linux/trash_calls.h"
#include "platform/trash_move.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tarvin {

/// The refusal for the error number of a failed call.
[[nodiscard]] TrashRefusal systemRefusal(int code);

/// Which Trash to open, and how.
struct TrashRequest {
    std::string path;  ///< absolute
    std::uint32_t user = 0;
    bool isHome = false;      ///< for the text of a refusal
    bool make = false;        ///< create missing folders, for the user alone
    bool keepsRights = true;  ///< whether the file system records owners and permissions
    /// The folder above must be a real one with the sticky bit, as the ".Trash" that the users
    /// of a volume share must be.
    bool isShared = false;
};

/// The three folders of a Trash: itself, "files" and "info". Held open. One thread at a time.
///
/// Each must be a real folder and belong to the user. Other users may read it, as older Trashes
/// allow, but not change it: a user who can rename in "files" can replace the files there. On a
/// file system without permissions (`keepsRights`) the reported ones are ignored: there a user who
/// can change the Trash can also change the file to be moved.
class TrashParts final {
 public:
    /// `calls` must outlive the object.
    static Result<TrashParts, TrashRefusal> open(const TrashRequest& request, TrashCalls& calls);

    [[nodiscard]] const std::string& path() const { return request_.path; }
    [[nodiscard]] const Descriptor& files() const { return parts_[filesPart].folder; }
    [[nodiscard]] const Descriptor& info() const { return parts_[infoPart].folder; }

    /// Whether the folders at the path are still the open ones, and still safe.
    [[nodiscard]] bool isIntact() const;

 private:
    struct Part {
        Descriptor folder;
        FileIdentity identity;
    };
    enum : std::size_t { trashPart, filesPart, infoPart, partCount };

    TrashParts(TrashRequest request, TrashCalls& calls)
        : request_(std::move(request)), calls_(calls) {}

    std::optional<TrashRefusal> openAll();
    std::optional<TrashRefusal> openShared(Descriptor& shared) const;
    std::optional<TrashRefusal> openPart(Part& part, int parent, const std::string& name,
                                         const std::string& path);
    [[nodiscard]] std::string sharedPath() const;
    [[nodiscard]] TrashRefusal openRefusal(int code, const std::string& path) const;
    [[nodiscard]] std::optional<TrashRefusal> statusRefusal(const TrashEntryStatus& status,
                                                            const std::string& path) const;

    TrashRequest request_;
    TrashCalls& calls_;
    std::array<Part, partCount> parts_;
};

}  // namespace tarvin
