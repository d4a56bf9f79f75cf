#include "scan/comparison_order.h"

#include <algorithm>

namespace tarvin {

ComparisonOrder::ComparisonOrder(std::uint64_t fileSize)
    : size_(fileSize),
      first_(std::min(fileSize, edgeBytes)),
      last_(std::min(fileSize - first_, edgeBytes)) {}

ComparisonOrder::Range ComparisonOrder::rangeAt(std::uint64_t position) const {
    if (position < first_) {
        return {position, first_ - position};
    }
    if (position < middle()) {
        return {size_ - last_ + (position - first_), middle() - position};
    }
    return {position - last_, size_ - position};
}

}  // namespace tarvin
