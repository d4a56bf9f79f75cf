#pragma once

#include "controller/location_list.h"
#include "scan/location_row.h"

#include <string>
#include <vector>

namespace tarvin {

/// The paths of the rows, in order.
inline std::vector<std::string> namesOf(const LocationList& list) {
    std::vector<std::string> names;
    for (const LocationRow& row : list.rows()) {
        names.push_back(row.name);
    }
    return names;
}

/// Whether each row is checked, in order.
inline std::vector<bool> statesOf(const LocationList& list) {
    std::vector<bool> states;
    for (const LocationRow& row : list.rows()) {
        states.push_back(row.state);
    }
    return states;
}

}  // namespace tarvin
