#include "support/shell_command.h"

#include "support/waiting.h"

#include <gtest/gtest.h>
#include <sys/types.h>

#include <csignal>
#include <fstream>
#include <string>

namespace tarvin {
namespace {

/// Whether the process does not exist or is a zombie.
bool hasEnded(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string text;
    std::getline(file, text);
    return text.empty() || text.find(") Z ") != std::string::npos;
}

TEST(ShellCommand, ReturnsTheOutputInOrderAndTheStatus) {
    const CommandResult result = runCommand("echo one; echo two >&2; echo three; exit 3");
    EXPECT_EQ(result.output, "one\ntwo\nthree\n");
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(runCommand("head -c 1000000 /dev/zero").output.size(), 1000000U);
    EXPECT_EQ(runCommand("kill -KILL $$").status, -1);
}

TEST(ShellCommand, KillsProcessesLeftInItsGroup) {
    const CommandResult result = runCommand("sleep 1500 & echo $!");
    EXPECT_EQ(result.status, 0);
    const pid_t left = std::stoi(result.output);
    EXPECT_TRUE(waitUntil([left] { return hasEnded(left); }));
}

TEST(ShellCommand, DoesNotWaitForTheOutputOfADaemon) {
    // The shell ends once the daemon has left its group.
    const CommandResult result = runCommand(
        "ready=$(mktemp -u) && mkfifo $ready || exit 1\n"
        "setsid sh -c \"echo \\$\\$ >$ready; exec sleep 1500\" &\n"
        "read -r daemon <$ready; rm $ready; echo $daemon");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(::kill(std::stoi(result.output), SIGKILL), 0);
}

}  // namespace
}  // namespace tarvin
