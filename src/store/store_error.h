#pragma once

#include <cstdint>
#include <string>

namespace tarvin {

/// Why a stored file could not be used or written.
struct StoreError {
    enum class Kind : std::uint8_t {
        missing,   ///< there is no such file
        unusable,  ///< what stands there will be of no use the next time either
        passing    ///< the system could not do it now; what stands there may be whole
    };

    std::string path;
    std::string text;  ///< what is wrong, for a person
    Kind kind = Kind::unusable;
};

}  // namespace tarvin
