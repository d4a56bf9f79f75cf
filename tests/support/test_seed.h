#pragma once

#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

namespace tarvin {

/// The seed of the random tests of this process: TARVIN_TEST_SEED from the environment, else a new
/// one. Printed once, so that the output of a failure tells how to reproduce it. Any thread.
inline unsigned testSeed() {
    static const unsigned seed = [] {
        const char* const set = std::getenv("TARVIN_TEST_SEED");  // NOLINT(concurrency-mt-unsafe)
        const unsigned chosen =
            set == nullptr ? std::random_device()() : static_cast<unsigned>(std::stoul(set));
        std::cout << "TARVIN_TEST_SEED=" << chosen << std::endl;
        return chosen;
    }();
    return seed;
}

}  // namespace tarvin
