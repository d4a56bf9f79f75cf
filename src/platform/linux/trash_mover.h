#pragma once

#include "platform/clock.h"
#include "platform/linux/trash_calls.h"
#include "platform/trash_move.h"

#include <memory>
#include <string>

namespace tarvin {

/// What a mover has around it, so that tests can put something else in its place. All of it has to
/// outlive the mover.
struct TrashSurroundings {
    TrashCalls& calls;
    Clock& clock;            ///< for the date of a note, and for when to look again
    std::string mountTable;  ///< path of a table in the format of the kernel's
};

/// Those of the machine.
[[nodiscard]] TrashSurroundings systemTrashSurroundings();

[[nodiscard]] std::unique_ptr<TrashMover> makeTrashMover(TrashUser user,
                                                         const TrashSurroundings& around);

}  // namespace tarvin
