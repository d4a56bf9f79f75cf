#pragma once

namespace CLI {
class App;
}

namespace tarvin {

/// Adds "--color" to a command. It takes effect while parsing, so that messages about the rest of
/// the command line respect it. Main thread only.
void addColorOption(CLI::App& command);

}  // namespace tarvin
