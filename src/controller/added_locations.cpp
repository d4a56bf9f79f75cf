#include "controller/added_locations.h"

#include <iterator>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace tarvin {

std::vector<LocationRow> AddedLocations::changeLevel(const std::string& level,
                                                     const std::vector<LocationRow>& rows,
                                                     std::vector<LocationRow> listed) {
    kept_[level_] = addedRows(rows);
    shown_.clear();
    level_ = level;
    if (auto kept = kept_.extract(level)) {
        listed = restored(std::move(kept.mapped()), std::move(listed));
    }
    return listed;
}

std::vector<LocationRow> AddedLocations::restored(std::vector<KeptRow> kept,
                                                  std::vector<LocationRow> listed) {
    std::unordered_map<std::string_view, std::size_t> positions;
    for (std::size_t position = 0; position < listed.size(); ++position) {
        positions.emplace(listed[position].name, position);
    }
    std::erase_if(kept, [&](const KeptRow& added) {
        shown_.insert(added.row.name);
        const auto found = positions.find(added.row.name);
        if (found == positions.end()) {
            return false;
        }
        listed[found->second].state = added.row.state;
        return true;
    });
    std::vector<LocationRow> rows;
    rows.reserve(listed.size() + kept.size());
    auto next = listed.begin();
    for (KeptRow& added : kept) {
        while (rows.size() < added.position && next != listed.end()) {
            rows.push_back(std::move(*next++));
        }
        rows.push_back(std::move(added.row));
    }
    std::move(next, listed.end(), std::back_inserter(rows));
    return rows;
}

std::vector<AddedLocations::KeptRow> AddedLocations::addedRows(
    const std::vector<LocationRow>& rows) const {
    std::vector<KeptRow> added;
    for (std::size_t position = 0; position < rows.size(); ++position) {
        if (shown_.contains(rows[position].name)) {
            added.push_back({position, rows[position]});
        }
    }
    return added;
}

void AddedLocations::setState(const std::string& name, bool state) {
    for (auto& [level, rows] : kept_) {
        for (KeptRow& kept : rows) {
            if (kept.row.name == name) {
                kept.row.state = state;
            }
        }
    }
}

void AddedLocations::clear() {
    kept_.clear();
    shown_.clear();
    level_.clear();
}

}  // namespace tarvin
