#include "report/display.h"

#include "support/pipe.h"
#include "support/pseudo_terminal.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace tarvin {
namespace {

/// Sets TERM during its lifetime.
class TerminalKind final {
 public:
    explicit TerminalKind(const char* kind) {
        if (const char* const before = std::getenv("TERM")) {  // NOLINT(concurrency-mt-unsafe)
            before_ = before;
        }
        ::setenv("TERM", kind, 1);  // NOLINT(concurrency-mt-unsafe)
    }
    TerminalKind(const TerminalKind&) = delete;
    TerminalKind& operator=(const TerminalKind&) = delete;
    ~TerminalKind() {
        if (before_) {
            ::setenv("TERM", before_->c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
        } else {
            ::unsetenv("TERM");  // NOLINT(concurrency-mt-unsafe)
        }
    }

 private:
    std::optional<std::string> before_;
};

TEST(Display, ATerminalIsDrawable) {
    const TerminalKind kind("xterm");
    const PseudoTerminal terminal;
    EXPECT_TRUE(isDrawable(terminal.programsEnd()));
}

TEST(Display, ATerminalThatCannotMoveTheCursorIsNotDrawable) {
    const TerminalKind kind("dumb");
    const PseudoTerminal terminal;
    EXPECT_FALSE(isDrawable(terminal.programsEnd()));
}

TEST(Display, APipeIsNotDrawable) {
    const TerminalKind kind("xterm");
    const Pipe pipe;
    EXPECT_FALSE(isDrawable(pipe.writing()));
    EXPECT_FALSE(isDrawable(-1));
}

}  // namespace
}  // namespace tarvin
