#pragma once

#include "window/home.h"
#include "window/program_window.h"

#include <string>

namespace tarvin {

/// A folder of the home with two equal files of so many bytes that comparing them does not end
/// while a test lasts. They take no room on the disk. Answers its path.
std::string makeEndlessFolder(const Home& home, const std::string& name);
/// A folder with two equal files of a few bytes.
std::string makeSmallFolder(const Home& home, const std::string& name);

/// What the progress screen says of the time that has passed.
[[nodiscard]] std::string elapsedTime(const ProgramWindow& window);
/// Returns when the scan has gone on for a while: its time shows another second.
void waitForProgress(const ProgramWindow& window);
/// Whether the time comes to a stop, for more than two of its steps.
[[nodiscard]] bool timeStandsStill(const ProgramWindow& window);

}  // namespace tarvin
