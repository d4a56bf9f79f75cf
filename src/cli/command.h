#pragma once

namespace CLI {
class App;
}

namespace tarvin {

/// What the program tells whoever started it.
enum class ExitStatus : int {
    done = 0,
    incomplete = 1,  ///< done as far as possible: something could not be read or written
    wrongUsage = 2,  ///< nothing was done
    stopped = 130,   ///< ended early on request; what was found until then has been told
    /// The reader of the output has gone away: what a shell sees of a program that SIGPIPE ended.
    outputClosed = 141
};

/// One command of the program, such as "scan". Made, asked and run on the main thread.
class Command {
 public:
    virtual ~Command() = default;

    /// Adds the command, its options and its help to `program` and answers what was added. The
    /// command must live as long as `program`, which stores into it what the command line says.
    virtual CLI::App& addTo(CLI::App& program) = 0;

    /// Does what the command line said. Failures are told on standard error.
    virtual ExitStatus run() = 0;
};

}  // namespace tarvin
