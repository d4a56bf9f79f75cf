#pragma once

#include "platform/platform.h"

#include <span>

namespace tarvin {

/// Runs the program with its arguments, without the program's name, and returns the exit status.
/// Results go to standard output, everything else to standard error. Call once per process, on the
/// main thread, before any other thread starts.
int runProgram(std::span<const char* const> arguments, Platform& platform);

}  // namespace tarvin
