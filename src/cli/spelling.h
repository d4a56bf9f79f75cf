#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tarvin {

/// An option that the parser would understand as something else than what was meant.
struct Misspelling {
    const CLI::App* command = nullptr;  ///< the one whose option it is
    std::string reason;                 ///< for a message, safe to print
};

/// The first misspelt option on a command line. The parser takes the next word for the value of
/// "--output=", a value given to a flag ("--yes=no") for the flag, and "-output" for "-o utput".
/// `arguments` are as escapedForParser() spells them. Main thread.
[[nodiscard]] std::optional<Misspelling> misspellingIn(const CLI::App& program,
                                                       const std::vector<std::string>& arguments);

}  // namespace tarvin
