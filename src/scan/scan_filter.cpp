#include "scan/scan_filter.h"

#include <algorithm>

namespace tarvin {

bool ScanFilter::excludes(const Directory& folder, std::string_view name, EntryType type) const {
    return std::any_of(excluded.begin(), excluded.end(), [&](const ExcludePattern& pattern) {
        return pattern.matches(folder, name, type);
    });
}

}  // namespace tarvin
