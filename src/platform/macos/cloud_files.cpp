#include "platform/macos/cloud_files.h"

namespace tarvin::macos {

bool isCloudPlaceholder(std::string_view name) {
    constexpr std::string_view extension = ".icloud";
    return name.starts_with('.') && name.ends_with(extension) && name.size() > 1 + extension.size();
}

}  // namespace tarvin::macos
