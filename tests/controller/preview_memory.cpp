#include "controller/preview_memory.h"

#include "controller/preview_program.h"
#include "support/shell_command.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tarvin {

PreviewCost costOfPreview(const std::string& path) {
    const std::string script =
        "import resource, subprocess, sys, time\n"
        "start = time.monotonic()\n"
        "try:\n"
        "    subprocess.run([sys.argv[1]], input=sys.argv[2].encode(), timeout=5,\n"
        "                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)\n"
        "except subprocess.TimeoutExpired:\n"
        "    pass\n"
        "print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss * 1024 // 1000000,\n"
        "      time.monotonic() - start)\n";
    const CommandResult result =
        runCommand("python3 -c '" + script + "' " + previewProgram().toStdString() + ' ' + path);
    EXPECT_EQ(result.status, 0) << result.output;
    PreviewCost cost;
    std::istringstream(result.output) >> cost.megabytes >> cost.seconds;
    return cost;
}

}  // namespace tarvin
