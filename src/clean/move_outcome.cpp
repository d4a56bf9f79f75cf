#include "clean/move_outcome.h"

namespace tarvin {

std::string_view outcomeWord(MoveOutcome outcome) {
    switch (outcome) {
        case MoveOutcome::moved:
            return "moved";
        case MoveOutcome::gone:
            return "gone";
        case MoveOutcome::changed:
            return "changed";
        case MoveOutcome::lastCopy:
            return "lastCopy";
        case MoveOutcome::refused:
            return "refused";
        case MoveOutcome::stopped:
            break;
    }
    return "stopped";
}

}  // namespace tarvin
