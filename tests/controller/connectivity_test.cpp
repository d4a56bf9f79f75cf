#include "controller/paths_of_build.h"
#include "support/shell_command.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

/// Serves a file in a separate network namespace, at an address that is not the loopback's, and has
/// the program fetch it: first without a default route, then with one. The program asks the kernel
/// for a route, not a network manager.
constexpr const char* script = R"(
export DBUS_SYSTEM_BUS_ADDRESS=unix:path=/nonexistent GIO_USE_NETWORK_MONITOR=netlink
ip link set lo up && ip address add 192.0.2.1/32 dev lo || exit 1
cd "$1" && mkfifo ready || exit 1
python3 -u -m http.server --bind 0.0.0.0 --directory "$1" 8080 >ready 2>errors &
server=$!
read -r line <ready
ask() { printf "http://$1:8080/served" | "$2"; echo " status $?"; }
ask 192.0.2.1 "$2"
ask 127.0.0.1 "$2"
ip route add default dev lo || exit 1
ask 192.0.2.1 "$2"
kill "$server"
)";

TEST(Connectivity, AUrlIsReadOnlyIfThereIsARouteOrItIsOnThisMachine) {
    if (runCommand("unshare -rn true").status != 0) {
        GTEST_SKIP() << "no network namespace can be made";
    }
    const TemporaryFolder folder;
    folder.writeFile("served", "content");
    const std::string asking = folder.writeFile("ask", script);
    const CommandResult asked = runCommand("unshare -rn sh '" + asking + "' '" + folder.path() +
                                           "' '" + urlReaderPath() + "'");
    EXPECT_EQ(asked.output, " status 1\ncontent status 0\ncontent status 0\n");
    EXPECT_EQ(asked.status, 0);
}

}  // namespace
}  // namespace tarvin
