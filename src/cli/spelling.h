#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tarvin {

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
