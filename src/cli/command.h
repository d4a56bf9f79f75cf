#pragma once

namespace CLI {
class App;
}

namespace tarvin {

/// The exit status of the program.
enum class ExitStatus : int {
    done = 0,
    incomplete = 1,  ///< finished, but something could not be read or written
    wrongUsage = 2,  ///< nothing was done
    stopped = 130,   ///< ended early on request; the partial result was written
    /// The reader of the output closed the pipe: the status of a program ended by SIGPIPE.
    outputClosed = 141
};

/// One command of the program, such as "scan". Main thread only.
class Command {
 public:
    virtual ~Command() = default;

    /// Adds the command, its options and its help to `program` and returns the added parser. The
    /// parser stores options into this object, which must outlive `program`.
    virtual CLI::App& addTo(CLI::App& program) = 0;

    /// Runs the command. Failures are reported on standard error.
    virtual ExitStatus run() = 0;
};

}  // namespace tarvin
