#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace tarvin {

/// Why a stored file could not be read or written.
struct StoreError {
    enum class Kind : std::uint8_t {
        missing,   ///< the file does not exist
        unusable,  ///< damaged or not accessible: the next attempt will fail, too
        passing    ///< a transient error; the file may be intact
    };

    std::string path;
    std::string text;  ///< the reason, for the user
    Kind kind = Kind::unusable;
};

template <typename Value>
using StoreResult = std::variant<Value, StoreError>;

}  // namespace tarvin
