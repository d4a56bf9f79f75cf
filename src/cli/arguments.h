#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tarvin {

/// The arguments of a command line, without the program's name, escaped for the option parser. It
/// interprets "[a,b]", "{}" and "++", and loses what follows "--" after a path. All our arguments
/// that are not options are paths, so these become "./[a,b]" and so on, which names the same file.
/// A pattern is no path: it is joined to its option, as in "--exclude=[a,b]", which the parser
/// takes as it is. "--" itself is dropped. Any thread.
std::vector<std::string> escapedForParser(std::span<const char* const> arguments);

/// An option that the parser would misinterpret.
struct Misspelling {
    const CLI::App* command = nullptr;  ///< whose option it is
    std::string reason;                 ///< safe to print
};

/// The first misspelt option on a command line; nullopt if there is none. The parser would take the
/// next word as the value of "--output=", ignore the value of a flag ("--yes=no"), and read
/// "-output" as "-o utput". `arguments` must come from escapedForParser(). Main thread only.
[[nodiscard]] std::optional<Misspelling> misspellingIn(const CLI::App& program,
                                                       const std::vector<std::string>& arguments);

}  // namespace tarvin
