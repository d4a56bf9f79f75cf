#include "support/shell_command.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

/// Otherwise a renamed line or suite would drop its mutation from the count in silence.
TEST(Mutations, AreFoundInTheSources) {
    const CommandResult result = runCommand("scripts/mutate --check");
    EXPECT_EQ(result.status, 0) << result.output;
}

}  // namespace
}  // namespace tarvin
