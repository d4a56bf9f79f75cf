#pragma once

#include "window/home.h"
#include "window/program_window.h"

#include <string>

namespace tarvin {

/// Makes a folder of the home with two equal sparse files that take longer to compare than a test
/// runs. Returns its path.
std::string makeEndlessFolder(const Home& home, const std::string& name);
/// Makes a folder with two equal files of a few bytes. Returns its path.
std::string makeSmallFolder(const Home& home, const std::string& name);

/// Scans, and shows the duplicates that are found.
void scanAndReview(const ProgramWindow& window);

/// The elapsed time on the progress screen.
[[nodiscard]] std::string elapsedTime(const ProgramWindow& window);
/// Blocks until the elapsed time changes. Throws std::runtime_error after testPatience.
void waitForProgress(const ProgramWindow& window);
/// Blocks until the elapsed time stays the same for more than two seconds. Returns false after
/// testPatience.
[[nodiscard]] bool timeStandsStill(const ProgramWindow& window);

}  // namespace tarvin
