#include "cli/terminal.h"

#include "support/pipe.h"
#include "support/pseudo_terminal.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

TEST(Terminal, HasItsWidth) {
    const PseudoTerminal terminal;
    terminal.setColumns(33);
    EXPECT_EQ(columnsOf(terminal.programsEnd()), 33U);
}

TEST(Terminal, AnUnknownWidthIsEightyColumns) {
    const PseudoTerminal terminal;
    terminal.setColumns(0);
    const Pipe pipe;
    EXPECT_EQ(columnsOf(terminal.programsEnd()), 80U);
    EXPECT_EQ(columnsOf(pipe.writing()), 80U);
    EXPECT_EQ(columnsOf(-1), 80U);
}

}  // namespace
}  // namespace tarvin
