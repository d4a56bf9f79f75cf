#include "scan/exception_filter.h"

namespace tarvin {

ExceptionFilter::ExceptionFilter(const std::vector<std::string>& paths)
    : paths_(paths.begin(), paths.end()) {
    for (const std::string_view path : paths_) {
        names_.insert(path.substr(path.rfind('/') + 1));
    }
}

bool ExceptionFilter::contains(const Directory& directory, std::string_view name) const {
    return names_.contains(name) && paths_.contains(directory.pathOf(name));
}

}  // namespace tarvin
