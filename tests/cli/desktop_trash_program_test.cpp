#include "cli/program_run.h"
#include "support/shell_command.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <iterator>
#include <string>

namespace tarvin {
namespace {

std::string quoted(const std::string& word) {
    return '\'' + word + '\'';
}

/// A separate desktop session with the service that shows the Trash to file managers.
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

TEST(DesktopTrash, ListsMovedFilesWithTheirPaths) {
    const TemporaryFolder home;
    const std::string first = home.writeFile("photos/a b.jpg", "equal");
    const std::string second = home.writeFile("photos/c.jpg", "equal");
    const CommandResult result = DesktopSession(home).run(
        program + " clean --yes \"" + home.pathOf("photos") + "\" && gio trash --list");
    ASSERT_NE(std::filesystem::exists(first), std::filesystem::exists(second)) << result.output;
    const std::string& moved = std::filesystem::exists(first) ? second : first;
    EXPECT_NE(result.output.find('\t' + moved + '\n'), std::string::npos) << result.output;
}

TEST(DesktopTrash, RestoresAFileToItsPath) {
    const TemporaryFolder home;
    home.writeFile("photos/a.jpg", "equal");
    home.writeFile("photos/b.jpg", "equal");
    const CommandResult result = DesktopSession(home).run(
        program + " clean --yes \"" + home.pathOf("photos") +
        "\" && gio trash --restore \"$(gio trash --list | grep -F $HOME | cut -f 1)\"");
    EXPECT_TRUE(std::filesystem::exists(home.pathOf("photos/a.jpg"))) << result.output;
    EXPECT_TRUE(std::filesystem::exists(home.pathOf("photos/b.jpg"))) << result.output;
}

/// Two files in the Trash, one of which another program restores.
class OtherProgram : public testing::Test {
 protected:
    OtherProgram() {
        for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
            home_.writeFile(std::string("photos/") + name, "equal file");
        }
    }

    /// Checks what tarvin offers after `command` has restored a.jpg or b.jpg, and after the rest
    /// has been restored.
    void expectOneLeft(const std::string& command) const {
        const std::string photos = home_.pathOf("photos");
        const CommandResult result = DesktopSession(home_).run(
            program + " clean --yes \"" + photos + "\" >\"$HOME/moved\" && " + command +
            " && echo ---- && " + program + " restore --yes && " + program + " restore --yes && " +
            program + " totals");
        EXPECT_EQ(result.status, 0);
        const std::string ours = result.output.substr(result.output.find("----\n") + 5);
        EXPECT_TRUE(ours.starts_with("Put back: " + photos + "/")) << result.output;
        // Messages of the desktop services at their end follow.
        EXPECT_NE(ours.find(".jpg\nFiles Put Back: 1\nSize: 0.01 KB\n"
                            "There is nothing to put back.\n"
                            "The last clean-up has been put back already.\n"
                            "Files cleaned so far: 0 (0.00 KB)\n"),
                  std::string::npos)
            << result.output;
        for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
            EXPECT_TRUE(std::filesystem::exists(home_.pathOf(std::string("photos/") + name)))
                << name;
        }
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(photos), {}), 3);
    }

    TemporaryFolder home_;
};

/// The path in the first line of the report.
const std::string firstMoved = "$(head -n 1 \"$HOME/moved\" | cut -d : -f 2- | cut -c 2-)";

TEST_F(OtherProgram, TrashListShowsEveryFileWithItsPath) {
    const CommandResult result = DesktopSession(home_).run(
        program + " clean --yes \"" + home_.pathOf("photos") + "\" >/dev/null && trash-list");
    std::size_t listed = 0;
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
        const std::string path = home_.pathOf(std::string("photos/") + name);
        const bool isListed = result.output.find(' ' + path + '\n') != std::string::npos;
        EXPECT_NE(isListed, std::filesystem::exists(path)) << result.output;
        listed += isListed ? 1 : 0;
    }
    EXPECT_EQ(listed, 2U);
}

TEST_F(OtherProgram, FilesRestoredByTrashRestoreAreNotOffered) {
    expectOneLeft("echo 0 | trash-restore \"" + firstMoved + "\" >/dev/null");
}

TEST_F(OtherProgram, FilesRestoredByGioAreNotOffered) {
    expectOneLeft(
        "gio trash --restore \"$(gio trash --list | grep -F $HOME | head -n 1 | cut -f 1)\"");
}

TEST_F(OtherProgram, FilesMovedBackByGioAreNotOffered) {
    expectOneLeft("gio move \"$XDG_DATA_HOME/Trash/files/$(basename \"" + firstMoved + "\")\" \"" +
                  firstMoved + "\"");
}

}  // namespace
}  // namespace tarvin
