#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace tarvin {

/// All bytes of a file; empty if it cannot be read.
inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tarvin
