#pragma once

#include <span>
#include <string>
#include <vector>

namespace tarvin {

/// The arguments of a command line, without the program's name, in a spelling that the parser of
/// options cannot mistake. The parser gives a meaning of its own to "[a,b]", "{}" and "++", and
/// loses what follows "--" once it has read a path. All arguments of ours that are no options are
/// paths, so each of these is written "./[a,b]" and so on, which is the same path. "--" itself is
/// left out.
std::vector<std::string> escapedForParser(std::span<const char* const> arguments);

}  // namespace tarvin
