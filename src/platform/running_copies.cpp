#include "platform/running_copies.h"

#include <algorithm>

namespace tarvin {

namespace {

// The first copy may end while it is being asked; then the next one is the first.
constexpr int mostTries = 5;

}  // namespace

std::optional<RunningCopy> keepFirstCopyOnly(RunningCopies& copies,
                                             const std::string& activationToken) {
    std::vector<RunningCopy> running = copies.copies();
    for (int tries = 1; running.size() > 1; ++tries) {
        // The first one is asked before the others end: one that has ended leaves them in charge.
        const bool isThere = copies.bringToFront(running.front(), activationToken);
        if (isThere || tries == mostTries) {
            std::for_each(running.begin() + 1, running.end(),
                          [&copies](RunningCopy copy) { copies.askToQuit(copy); });
            break;
        }
        running = copies.copies();
    }
    return running.empty() ? std::nullopt : std::optional(running.front());
}

}  // namespace tarvin
