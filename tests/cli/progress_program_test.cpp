#include "cli/program_run.h"
#include "support/pseudo_terminal.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

constexpr const char* erased = "\r\x1B[K";

/// Two equal files.
class ShownProgress : public testing::Test {
 protected:
    ShownProgress() {
        folder_.writeFile("a.jpg", "photo");
        folder_.writeFile("b.jpg", "photo");
    }

    [[nodiscard]] ProgramResult scanInPipe(const std::string& when) const {
        return runTarvin({"scan", "--progress", when, folder_.path()});
    }

    /// The output on a terminal of this type.
    [[nodiscard]] std::string drawn(const std::string& when,
                                    const std::string& terminalKind) const {
        PseudoTerminal terminal;
        ProgramRun run({"scan", "--progress", when, folder_.path()},
                       {.environment = {{"TERM", terminalKind}}, .errors = terminal.programsEnd()});
        terminal.closeProgramsEnd();
        std::string text = terminal.readAll();
        EXPECT_EQ(run.wait().status, 0);
        return text;
    }

    TemporaryFolder folder_;
};

TEST_F(ShownProgress, IsNotDrawnInAPipeByDefault) {
    EXPECT_EQ(scanInPipe("auto").errors, "");
    EXPECT_EQ(scanInPipe("never").errors, "");
    EXPECT_EQ(runTarvin({"scan", folder_.path()}).errors, "");
}

TEST_F(ShownProgress, AlwaysIsDrawnAndErased) {
    const ProgramResult result = scanInPipe("always");
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.errors.starts_with('\r')) << result.errors;
    EXPECT_TRUE(result.errors.ends_with(erased)) << result.errors;
    EXPECT_GT(result.errors.size(), std::string(erased).size());
}

TEST_F(ShownProgress, LeavesTheResultAlone) {
    const std::string silent = scanInPipe("never").output;
    const std::string drawing = scanInPipe("always").output;
    const std::size_t timeAtTheEnd = silent.find("Elapsed Time");
    EXPECT_EQ(drawing.substr(0, timeAtTheEnd), silent.substr(0, timeAtTheEnd));
}

TEST_F(ShownProgress, IsDrawnOnATerminal) {
    const std::string text = drawn("auto", "xterm");
    EXPECT_TRUE(text.starts_with('\r')) << text;
    EXPECT_TRUE(text.ends_with(erased)) << text;
}

TEST_F(ShownProgress, IsNotDrawnOnATerminalThatCannotMoveTheCursor) {
    EXPECT_EQ(drawn("auto", "dumb"), "");
}

TEST_F(ShownProgress, NeverIsNeverDrawn) {
    EXPECT_EQ(drawn("never", "xterm"), "");
}

}  // namespace
}  // namespace tarvin
