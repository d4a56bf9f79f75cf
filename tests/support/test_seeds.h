#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace tarvin {

/// A new seed for each process, or the value of the environment variable TARVIN_TEST_SEED, so that
/// a failure can be repeated. Prints it.
inline std::uint64_t newTestSeed() {
    static const std::uint64_t seed = [] {
        const char* const given = std::getenv("TARVIN_TEST_SEED");  // NOLINT(concurrency-mt-unsafe)
        return given == nullptr ? std::random_device()() : std::strtoull(given, nullptr, 10);
    }();
    std::printf("[     SEED ] TARVIN_TEST_SEED=%s\n", std::to_string(seed).c_str());
    return seed;
}

/// The seeds of a random test: 1 to `fixedCount`, and newTestSeed().
inline std::vector<std::uint64_t> testSeeds(std::uint64_t fixedCount) {
    std::vector<std::uint64_t> seeds;
    for (std::uint64_t seed = 1; seed <= fixedCount; ++seed) {
        seeds.push_back(seed);
    }
    seeds.push_back(newTestSeed());
    return seeds;
}

/// The text for SCOPED_TRACE().
inline std::string seedText(std::uint64_t seed) {
    return "seed " + std::to_string(seed);
}

}  // namespace tarvin
