#pragma once

#include "store/data_file.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <variant>

namespace tarvin {

/// Adds to the totals of a data file, as another instance does after a clean-up. Returns the error
/// if they could not be written. `size` is in bytes.
[[nodiscard]] inline std::optional<StoreError> addToTotals(DataFile& data, std::uint64_t count,
                                                           std::uint64_t size) {
    auto locked = data.lock();
    if (auto* error = std::get_if<StoreError>(&locked)) {
        return std::move(*error);
    }
    auto& totals = std::get<LockedTotals>(locked);
    return totals.store(
        {totals.stored().count + static_cast<std::int64_t>(count), totals.stored().size + size});
}

}  // namespace tarvin
