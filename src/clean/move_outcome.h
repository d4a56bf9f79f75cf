#pragma once

#include "platform/result.h"
#include "platform/trash_move.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvin {

/// The outcome for one marked file.
enum class MoveOutcome : std::uint8_t {
    moved,     ///< in the Trash
    gone,      ///< its path no longer exists
    changed,   ///< the file, its folder or its contents differ from those compared
    lastCopy,  ///< no other file of its set is still as compared
    refused,   ///< see MoveResult::reason
    stopped    ///< stopped before its move
};

struct MoveResult {
    MoveOutcome outcome = MoveOutcome::stopped;
    /// refused: the text of the system or of the Trash. moved: empty, or why it could not be moved
    /// back although no other copy was found. lastCopy: empty, or why a copy does not count.
    std::string reason;
    // The cause of `reason`, for callers that translate it.
    TrashRefusalKind refusal = TrashRefusalKind::system;
    SystemError error{};
    bool isUnplanned = false;  ///< refused because the journal does not have the move

    bool operator==(const MoveResult&) const = default;
};

/// Returns the word for an outcome in the journal, in JSON and CSV: "moved", "gone", "changed",
/// "lastCopy", "refused", "stopped".
[[nodiscard]] std::string_view outcomeWord(MoveOutcome outcome);

}  // namespace tarvin
