#pragma once

#include <string>
#include <string_view>

namespace CLI {
class App;
class Error;
}  // namespace CLI

namespace tarvin {

// Errors of a command line, each one line that is safe to print. Words are as given; `command` is
// the command that they were given to. Main thread only.

/// "missing command".
[[nodiscard]] std::string missingCommandText();
/// "unknown command 'claen'; did you mean 'clean'?".
[[nodiscard]] std::string unknownCommandText(const std::string& word, const CLI::App& command);
/// "unexpected argument '--yse'; did you mean '--yes'?". A command that is expected there and
/// unknown is reported as that.
[[nodiscard]] std::string unexpectedArgumentText(const std::string& word, const CLI::App& command);
/// "--yes takes no value".
[[nodiscard]] std::string noValueText(std::string_view option);
/// "missing value for --output".
[[nodiscard]] std::string missingValueText(std::string_view option);
/// "invalid value 'xml' for --format: REASON".
[[nodiscard]] std::string invalidValueText(std::string_view value, std::string_view option,
                                           std::string_view reason);

/// The text for an error that the parser has thrown while it read the options of `command`.
[[nodiscard]] std::string usageErrorText(const CLI::Error& error, const CLI::App& command);

}  // namespace tarvin
