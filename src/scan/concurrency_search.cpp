#include "scan/concurrency_search.h"

#include <algorithm>

namespace tarvin {

namespace {

// What twice as many at once must gain. Calls that are answered one by one gain nothing, others
// nearly a second time their rate.
constexpr double worthwhileGain = 1.3;
constexpr std::size_t reportsBetweenTrials = 8;

}  // namespace

ConcurrencySearch::ConcurrencySearch(std::size_t most)
    : most_(most), proven_(std::min<std::size_t>(most, 2)), atOnce_(proven_) {}

void ConcurrencySearch::report(double callsASecond) {
    if (atOnce_ == proven_) {
        provenRate_ = callsASecond;
        --reportsUntilTrial_;
    } else if (callsASecond >= provenRate_ * worthwhileGain) {
        proven_ = atOnce_;
        provenRate_ = callsASecond;
        reportsUntilTrial_ = 0;
    } else {
        reportsUntilTrial_ = reportsBetweenTrials;
    }
    atOnce_ = reportsUntilTrial_ == 0 ? std::min(proven_ * 2, most_) : proven_;
    if (atOnce_ == proven_) {
        reportsUntilTrial_ = std::max<std::size_t>(reportsUntilTrial_, 1);
    }
}

}  // namespace tarvin
