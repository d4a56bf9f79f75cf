#pragma once

#include "heartbeat.h"
#include "private_home.h"
#include "product.h"

#include <cstdio>
#include <string>

namespace tarvin::bench {

/// Runs a scenario with the program over the folder `tree`, `rounds` times, in a private home in
/// `work`, and reports the measurements. Returns the exit status for main().
///
/// A `Scenario` is constructed from a heartbeat, the folder and `more`. run(rounds) returns false
/// if the program does not make progress; report() prints the measurements and returns false if a
/// goal was missed.
template <class Scenario, class... More>
[[nodiscard]] int runScenario(int argc, char** argv, const std::string& work,
                              const std::string& tree, int rounds, const More&... more) {
    const PrivateHome home(work);
    usePlatformOfMeasurement();
    nameTheProduct();
    const WatchedApplication application(argc, argv);
    Heartbeat heartbeat;
    Scenario scenario(heartbeat, tree, more...);
    if (!scenario.run(rounds)) {
        std::fputs("window benchmark: the program made no progress\n", stderr);
        return 1;
    }
    return scenario.report() ? 0 : 1;
}

}  // namespace tarvin::bench
