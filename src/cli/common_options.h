#pragma once

#include "cli/command.h"
#include "report/output_file.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace tarvin {

// Options that several commands have, and the output that one names. Main thread only.

/// Adds an option whose value is a file name; `take` is called with the last one given.
CLI::Option* addFileOption(CLI::App& command, const std::string& name,
                           const std::function<void(const std::string&)>& take,
                           const std::string& help);

/// Adds an option whose value is a folder. It can be given several times, with one folder each;
/// `command` appends them to `folders`, which must outlive it.
void addFoldersOption(CLI::App& command, const std::string& name, std::vector<std::string>& folders,
                      const std::string& help);

/// Adds "-o,--output". `command` stores into `output`, which must outlive it.
void addOutputOption(CLI::App& command, std::string& output);

/// The name of the output for a message: quoted, or "standard output".
[[nodiscard]] std::string shownOutput(const std::string& output);

/// Opens the output. Returns nullptr, after an error message, if it cannot be written.
[[nodiscard]] std::unique_ptr<OutputFile> openOutput(const std::string& output);

/// Completes the output. If that fails, reports it and returns the status by statusOfFailure().
[[nodiscard]] ExitStatus commitOutput(const std::string& output, OutputFile& file);

/// Adds "--color" to a command. It takes effect while parsing, so that messages about the rest of
/// the command line respect it.
void addColorOption(CLI::App& command);

}  // namespace tarvin
