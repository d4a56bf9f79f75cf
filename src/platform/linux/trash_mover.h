#pragma once

#include "platform/clock.h"
#include "platform/linux/trash_calls.h"
#include "platform/trash_move.h"

#include <memory>
#include <string>

namespace tarvin {

/// The dependencies of a mover, which tests replace. Must outlive the mover.
struct TrashSurroundings {
    TrashCalls& calls;
    Clock& clock;            ///< for the dates of .trashinfo files and the repeated checks
    std::string mountTable;  ///< path of a table in the format of /proc/self/mountinfo
};

/// Those of the real system.
[[nodiscard]] TrashSurroundings systemTrashSurroundings();

[[nodiscard]] std::unique_ptr<TrashMover> makeTrashMover(TrashUser user,
                                                         const TrashSurroundings& around);

}  // namespace tarvin
