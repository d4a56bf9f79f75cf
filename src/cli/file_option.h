#pragma once

#include "cli/command.h"
#include "cli/output_file.h"

#include <functional>
#include <memory>
#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace tarvin {

// Options that name a file, and the one of them that says where the result goes. Main thread.

/// An option whose value is the name of a file; of several on one command line the last counts, and
/// `take` is called with it.
CLI::Option* addFileOption(CLI::App& command, const std::string& name,
                           const std::function<void(const std::string&)>& take,
                           const std::string& help);

/// "-o,--output". `output` must live as long as `command`, which stores into it.
void addOutputOption(CLI::App& command, std::string& output);

/// The place that the option names, for a message.
[[nodiscard]] std::string shownOutput(const std::string& output);

/// Opens the place; none, and a complaint, if it is of no use.
[[nodiscard]] std::unique_ptr<OutputFile> openOutput(const std::string& output);

/// Puts the result in its place. If that fails, what statusOfFailure() makes of it.
[[nodiscard]] ExitStatus commitOutput(const std::string& output, OutputFile& file);

}  // namespace tarvin
