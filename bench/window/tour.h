#pragma once

#include "heartbeat.h"
#include "private_home.h"
#include "product.h"

#include <cstdio>
#include <string>

namespace tarvin::bench {

/// Leads a tour through the product over the folder `tree`, `rounds` times, in a private home in
/// `work`, and reports it. The exit status of a program that does nothing else.
///
/// A `Tour` is made from a heartbeat and the folder; run(rounds) is false if the product does not
/// get on, report() prints what was seen and is false if a goal was missed.
template <class Tour>
[[nodiscard]] int lead(int argc, char** argv, const std::string& work, const std::string& tree,
                       int rounds) {
    const PrivateHome home(work);
    usePlatformOfMeasurement();
    nameTheProduct();
    const WatchedApplication application(argc, argv);
    Heartbeat heartbeat;
    Tour tour(heartbeat, tree);
    if (!tour.run(rounds)) {
        std::fputs("The product did not get on.\n", stderr);
        return 1;
    }
    return tour.report() ? 0 : 1;
}

}  // namespace tarvin::bench
