#pragma once

#include "support/shell_command.h"
#include "support/temporary_folder.h"

#include <string>

namespace tarvin {

/// A separate desktop session with the GVfs service that shows the Trash to file managers. Its home
/// is `home`, with "data" as XDG_DATA_HOME.
class DesktopSession final {
 public:
    /// A command may take a minute. `home` must outlive this object.
    explicit DesktopSession(const TemporaryFolder& home)
        : environment_("env HOME=" + quoted(home.path()) +
                       " XDG_DATA_HOME=" + quoted(home.pathOf("data")) +
                       " XDG_RUNTIME_DIR=" + quoted(home.makeFolder("run")) + " LC_ALL=C.UTF-8") {}

    /// Runs shell commands with a new D-Bus session.
    [[nodiscard]] CommandResult run(const std::string& commands) const {
        return runCommand(environment_ + " timeout --kill-after=5 60 dbus-run-session -- sh -c " +
                          quoted(commands));
    }
    /// Runs shell commands without D-Bus.
    [[nodiscard]] CommandResult runAlone(const std::string& commands) const {
        return runCommand(environment_ + " timeout --kill-after=5 60 sh -c " + quoted(commands));
    }

    /// Returns `word` quoted for a shell command.
    [[nodiscard]] static std::string quoted(const std::string& word) {
        std::string text = "'";
        for (const char letter : word) {
            text += letter == '\'' ? std::string(R"('\'')") : std::string(1, letter);
        }
        return text + '\'';
    }

 private:
    std::string environment_;
};

}  // namespace tarvin
