#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace tarvin::bench {

using SteadyClock = std::chrono::steady_clock;

[[nodiscard]] inline double milliseconds(SteadyClock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

/// Requires at least one figure. The mean of the middle two if their number is even.
[[nodiscard]] inline double median(std::vector<double> figures) {
    std::sort(figures.begin(), figures.end());
    const std::size_t middle = figures.size() / 2;
    return figures.size() % 2 == 1 ? figures[middle] : (figures[middle - 1] + figures[middle]) / 2;
}

[[nodiscard]] inline double least(const std::vector<double>& figures) {
    return *std::min_element(figures.begin(), figures.end());
}

[[nodiscard]] inline double most(const std::vector<double>& figures) {
    return *std::max_element(figures.begin(), figures.end());
}

}  // namespace tarvin::bench
