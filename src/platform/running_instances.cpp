#include "platform/running_instances.h"

#include <algorithm>

namespace tarvin {

namespace {

// The first instance may quit before it gets the request; then the next one is the first.
constexpr int maxTries = 5;

}  // namespace

std::optional<RunningInstance> keepFirstInstanceOnly(RunningInstances& instances,
                                                     const std::string& activationToken) {
    std::vector<RunningInstance> running = instances.instances();
    for (int tries = 1; running.size() > 1; ++tries) {
        // The first is asked before the others quit: if it has ended, one of them stays.
        const bool isThere = instances.bringToFront(running.front(), activationToken);
        if (isThere || tries == maxTries) {
            std::for_each(
                running.begin() + 1, running.end(),
                [&instances](RunningInstance instance) { instances.askToQuit(instance); });
            break;
        }
        running = instances.instances();
    }
    return running.empty() ? std::nullopt : std::optional(running.front());
}

}  // namespace tarvin
