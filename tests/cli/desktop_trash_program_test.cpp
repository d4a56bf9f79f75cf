#include "cli/program_run.h"
#include "support/shell_command.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tarvin {
namespace {

std::string quoted(const std::string& word) {
    return '\'' + word + '\'';
}

/// A desktop session of the test's own, with the service that shows the Trash to file managers.
class DesktopSession final {
 public:
    explicit DesktopSession(const TemporaryFolder& home)
        : start_("env HOME=" + quoted(home.path()) +
                 " XDG_DATA_HOME=" + quoted(home.pathOf("data")) +
                 " XDG_RUNTIME_DIR=" + quoted(home.makeFolder("run")) +
                 " timeout --kill-after=5 60 dbus-run-session -- sh -c ") {}

    [[nodiscard]] CommandResult run(const std::string& commands) const {
        return runCommand(start_ + quoted(commands));
    }

 private:
    std::string start_;
};

const std::string program = ProgramRun::program();

TEST(DesktopTrash, ListsWhatWasMovedWithThePlaceItCameFrom) {
    const TemporaryFolder home;
    const std::string first = home.writeFile("photos/a b.jpg", "equal");
    const std::string second = home.writeFile("photos/c.jpg", "equal");
    const CommandResult result = DesktopSession(home).run(
        program + " clean --yes \"" + home.pathOf("photos") + "\" && gio trash --list");
    ASSERT_NE(std::filesystem::exists(first), std::filesystem::exists(second)) << result.output;
    const std::string& moved = std::filesystem::exists(first) ? second : first;
    EXPECT_NE(result.output.find('\t' + moved + '\n'), std::string::npos) << result.output;
}

TEST(DesktopTrash, PutsAFileBackWhereItWas) {
    const TemporaryFolder home;
    home.writeFile("photos/a.jpg", "equal");
    home.writeFile("photos/b.jpg", "equal");
    const CommandResult result = DesktopSession(home).run(
        program + " clean --yes \"" + home.pathOf("photos") +
        "\" && gio trash --restore \"$(gio trash --list | grep -F $HOME | cut -f 1)\"");
    EXPECT_TRUE(std::filesystem::exists(home.pathOf("photos/a.jpg"))) << result.output;
    EXPECT_TRUE(std::filesystem::exists(home.pathOf("photos/b.jpg"))) << result.output;
}

}  // namespace
}  // namespace tarvin
