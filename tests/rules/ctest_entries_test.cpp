#include "support/shell_command.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

/// Runs lines of Python for which `entries` is the list of the build's ctest entries, without those
/// of programs that are not built. ctest is called in another folder: in the build folder it would
/// replace the log of the run that this test is in.
CommandResult runOnEntries(const std::string& lines) {
    const TemporaryFolder folder;
    folder.writeFile("CTestTestfile.cmake", "subdirs(\"" TARVIN_BUILD_DIR "/tests\")\n");
    return runCommand("ctest --test-dir '" + folder.path() +
                      "' --show-only=json-v1 | python3 -c '"
                      "import json, sys\n"
                      "entries = [entry for entry in json.load(sys.stdin)[\"tests\"]\n"
                      "           if not entry[\"name\"].endswith(\"NOT_BUILT\")]\n" +
                      lines + '\'');
}

TEST(CtestEntries, HaveATimeout) {
    const CommandResult result = runOnEntries(
        "for entry in entries:\n"
        "    names = [each[\"name\"] for each in entry.get(\"properties\", [])]\n"
        "    if \"TIMEOUT\" not in names:\n"
        "        print(entry[\"name\"])\n"
        "print(len(entries) > 10)");
    EXPECT_EQ(result.output, "True\n");
    EXPECT_EQ(result.status, 0);
}

TEST(CtestEntries, HaveDifferentNames) {
    const CommandResult result = runOnEntries(
        "names = [entry[\"name\"] for entry in entries]\n"
        "print([name for name in names if names.count(name) > 1])");
    EXPECT_EQ(result.output, "[]\n");
    EXPECT_EQ(result.status, 0);
}

}  // namespace
}  // namespace tarvin
