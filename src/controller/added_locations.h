#pragma once

#include "scan/location_row.h"

#include <cstddef>
#include <map>
#include <string>
#include <unordered_set>
#include <vector>

namespace tarvin {

/// The rows that the user added to a location list, by level: each level gets its own back when it
/// is shown again, at their positions and checked or not as they were left. A level is a folder's
/// path, or empty for the top level, which is shown first. Main thread only.
class AddedLocations final {
 public:
    /// The row of this name was added to the level that is shown.
    void add(const std::string& name) { shown_.insert(name); }

    /// Changes from the level that is shown, with `rows`, to `level`, whose own rows are `listed`.
    /// Returns `listed` with the rows that were added there before. A row that is listed now keeps
    /// only its check state.
    [[nodiscard]] std::vector<LocationRow> changeLevel(const std::string& level,
                                                       const std::vector<LocationRow>& rows,
                                                       std::vector<LocationRow> listed);

    /// Sets the check state of the rows of this name at the levels that are not shown.
    void setState(const std::string& name, bool state);

    /// Forgets all rows; the top level is shown.
    void clear();

 private:
    /// A row of a level that is not shown.
    struct KeptRow {
        std::size_t position = 0;
        LocationRow row;
    };

    [[nodiscard]] std::vector<KeptRow> addedRows(const std::vector<LocationRow>& rows) const;
    [[nodiscard]] std::vector<LocationRow> restored(std::vector<KeptRow> kept,
                                                    std::vector<LocationRow> listed);

    std::string level_;                                 // that is shown
    std::unordered_set<std::string> shown_;             // names of its added rows
    std::map<std::string, std::vector<KeptRow>> kept_;  // by level, without the one shown
};

}  // namespace tarvin
