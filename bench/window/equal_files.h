#pragma once

#include <cstdint>
#include <string>

namespace tarvin::bench {

/// Describes files for a result of a known size.
struct EqualFiles {
    std::uint64_t sets = 0;
    std::uint64_t files = 0;  ///< in sets whose sizes differ by at most one; at least two in each
    std::uint64_t extensions = 0;
};

/// Writes them into a new folder. Their extensions are those of all categories; further ones are
/// invented. Returns false on failure.
[[nodiscard]] bool writeEqualFiles(const std::string& folder, const EqualFiles& request);

}  // namespace tarvin::bench
