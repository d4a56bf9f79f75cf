#pragma once

#include "platform/platform.h"

#include <span>

namespace tarvin {

/// The whole program: does what the arguments (without the program's name) say and answers the exit
/// status. Results go to standard output, everything else to standard error. Once in a process, on
/// the main thread, before any other thread starts.
int runProgram(std::span<const char* const> arguments, Platform& platform);

}  // namespace tarvin
