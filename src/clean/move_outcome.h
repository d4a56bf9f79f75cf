#pragma once

#include "platform/result.h"
#include "platform/trash_move.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvin {

/// What became of one marked file.
enum class MoveOutcome : std::uint8_t {
    moved,     ///< it is in the Trash
    gone,      ///< nothing stands at its path any more
    changed,   ///< not what was compared: it, its folder or its contents are others now
    lastCopy,  ///< no other file of its set is there as it was compared
    refused,   ///< the system did not move it
    stopped    ///< a stop came first
};

struct MoveResult {
    MoveOutcome outcome = MoveOutcome::stopped;
    /// Why the system refused, in its words or in those of the Trash. Of a file that was moved: why
    /// it could not be moved back, though no other copy was found after the move. Empty for other
    /// outcomes.
    std::string reason;
    // Of `reason`, for whoever puts it in other words: by whom and why, if the Trash or the system
    // was asked.
    TrashRefusalKind refusal = TrashRefusalKind::system;
    SystemError error{};
    bool isUnplanned = false;  ///< refused since the journal does not hold the move

    bool operator==(const MoveResult&) const = default;
};

/// The word for an outcome in the journal, in JSON and CSV: "moved", "gone", "changed", "lastCopy",
/// "refused", "stopped".
[[nodiscard]] std::string_view outcomeWord(MoveOutcome outcome);

}  // namespace tarvin
