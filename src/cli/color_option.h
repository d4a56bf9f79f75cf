#pragma once

namespace CLI {
class App;
}

namespace tarvin {

/// Adds "--color" to a command. It takes effect as soon as it is read, so that messages about the
/// rest of the command line follow it. Main thread.
void addColorOption(CLI::App& command);

}  // namespace tarvin
