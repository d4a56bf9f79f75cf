#include "controller/location_index.h"

#include "scan/category.h"

namespace tarvin {

bool LocationIndex::covers(std::string_view path) const {
    if (names_.contains(path)) {
        return true;
    }
    for (std::size_t slash = path.find('/'); slash != std::string_view::npos;
         slash = path.find('/', slash + 1)) {
        const std::string_view above = path.substr(0, slash);
        if (names_.contains(above) && pathExtension(above).empty()) {
            return true;
        }
    }
    return false;
}

}  // namespace tarvin
