#pragma once

#include <string>

namespace tarvin {

/// An XML property list with this root.
inline std::string plistText(const std::string& root) {
    return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + root + "</plist>";
}

}  // namespace tarvin
