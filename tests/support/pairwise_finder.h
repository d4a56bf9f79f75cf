#pragma once

#include "model/file.h"
#include "model/modal.h"

#include <string>
#include <vector>

namespace tarvin {

/// A result that is easily compared and printed: for each extension in order its name and sets, for
/// each set the paths in order.
struct PlainExtension {
    std::string name;
    std::vector<std::vector<std::string>> sets;

    bool operator==(const PlainExtension&) const = default;
};
using PlainResult = std::vector<PlainExtension>;

/// The reference implementation of the finder (brute force): compares the first file in full with
/// every other of its size, removes that group from the list, and repeats until the list is empty.
PlainResult findPairwise(std::vector<File*> list);

PlainResult plainResultOf(const Modal& modal);

/// Returns the result as text, for failure messages.
std::string printed(const PlainResult& result);

}  // namespace tarvin
