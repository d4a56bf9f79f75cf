#pragma once

#include "model/file.h"
#include "model/modal.h"

#include <string>
#include <vector>

namespace tarvin {

/// A result in a form that is easily compared and printed: for each extension in order its name and
/// sets, for each set the paths in order.
struct PlainExtension {
    std::string name;
    std::vector<std::vector<std::string>> sets;

    bool operator==(const PlainExtension&) const = default;
};
using PlainResult = std::vector<PlainExtension>;

/// The judge of the finder: slow and obvious. Takes the first file, compares it in full with every
/// other of its size, files the group, and so on until none is left.
PlainResult findPairwise(std::vector<File*> list);

PlainResult plainResultOf(const Modal& modal);

/// For the message of a failed comparison.
std::string printed(const PlainResult& result);

}  // namespace tarvin
