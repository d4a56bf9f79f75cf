#pragma once

#include <span>
#include <string>
#include <vector>

namespace tarvin {

/// The arguments of a command line, without the program's name, escaped for the option parser. It
/// interprets "[a,b]", "{}" and "++", and loses what follows "--" after a path. All our arguments
/// that are not options are paths, so these become "./[a,b]" and so on, which names the same file.
/// "--" itself is dropped. Any thread.
std::vector<std::string> escapedForParser(std::span<const char* const> arguments);

}  // namespace tarvin
