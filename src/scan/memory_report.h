#pragma once

#include "store/store_error.h"

#include <optional>
#include <string>

namespace tarvin {

/// What went wrong with the memory of a scan, which reads all files then.
struct MemoryReport {
    std::optional<StoreError> notRead;
    std::optional<StoreError> notStored;
    std::string damaged;  ///< path of a damaged memory that was replaced by a new one; or empty
};

}  // namespace tarvin
