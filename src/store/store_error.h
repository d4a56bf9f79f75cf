#pragma once

#include <string>

namespace tarvin {

/// Why a stored file could not be used or written.
struct StoreError {
    std::string path;
    std::string text;      ///< what is wrong with it, for a person
    bool missing = false;  ///< there is no such file
};

}  // namespace tarvin
