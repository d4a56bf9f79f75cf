#pragma once

#include <cstdint>
#include <string>

namespace tarvin::bench {

/// Files for a result of a known size.
struct EqualFiles {
    std::uint64_t sets = 0;
    std::uint64_t files = 0;  ///< in sets of as equal a size as can be; at least two in each
    std::uint64_t extensions = 0;
};

/// Writes them into a new folder. What they are called spreads them over all categories, unless
/// there are more extensions than those that have one. False if that fails.
[[nodiscard]] bool writeEqualFiles(const std::string& folder, const EqualFiles& request);

}  // namespace tarvin::bench
