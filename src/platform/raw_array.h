#pragma once

#include <cstddef>
#include <memory>

namespace tarvin {

/// An array whose elements have no value yet. The standard library has this too, but not LLVM's of
/// every release that we build with.
template <typename Element>
[[nodiscard]] std::unique_ptr<Element[]> makeRawArray(std::size_t count) {
    return std::unique_ptr<Element[]>(new Element[count]);
}

}  // namespace tarvin
