#include "window/virtual_desktop.h"

#include "support/shell_command.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace tarvin {

namespace {

void set(const char* name, const std::string& value) {
    ::setenv(name, value.c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
}

/// Removes the variables that lead to the desktop from which the test was started.
void forgetOuterDesktop() {
    constexpr std::array names{
        "AT_SPI_BUS_ADDRESS", "DESKTOP_STARTUP_ID",      "NO_AT_BRIDGE",        "QT_QPA_PLATFORM",
        "QT_SCALE_FACTOR",    "QT_SCREEN_SCALE_FACTORS", "QT_STYLE_OVERRIDE",   "WAYLAND_DISPLAY",
        "XAUTHORITY",         "XDG_ACTIVATION_TOKEN",    "XDG_CURRENT_DESKTOP", "XDG_SESSION_TYPE"};
    for (const char* name : names) {
        ::unsetenv(name);  // NOLINT(concurrency-mt-unsafe)
    }
}

/// Reaps the orphaned children of programs that this process started.
void endOrphans() {
    const std::string task = std::to_string(::getpid());
    std::ifstream children("/proc/self/task/" + task + "/children");
    for (pid_t child = 0; children >> child;) {
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
    }
}

}  // namespace

VirtualDesktop::VirtualDesktop() {
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    forgetOuterDesktop();
    set("LC_ALL", "C.UTF-8");
    set("HOME", folder_.makeFolder("home"));
    const std::string runtime = folder_.makeFolder("runtime");
    std::filesystem::permissions(runtime, std::filesystem::perms::owner_all);
    set("XDG_RUNTIME_DIR", runtime);
    // Keep the bus from starting further programs.
    set("GIO_USE_VFS", "local");
    set("GSETTINGS_BACKEND", "memory");
    startScreen();
    startBus();
    startWindowManager();
}

VirtualDesktop::~VirtualDesktop() {
    windowManager_.reset();
    bus_.reset();
    screen_.reset();
    endOrphans();
}

void VirtualDesktop::startScreen() {
    // The server takes the first free display number, and prints it.
    screen_ = std::make_unique<ChildProcess>(
        ChildProcess::Words{"Xvfb", "-displayfd", "1", "-screen", "0", "1600x1000x24", "-nolisten",
                            "tcp", "-noreset"},
        folder_.pathOf("screen"));
    set("DISPLAY", ":" + screen_->firstLine());
}

void VirtualDesktop::startBus() {
    bus_ = std::make_unique<ChildProcess>(
        ChildProcess::Words{"dbus-daemon", "--session", "--nofork", "--print-address=1",
                            "--address=unix:path=" + folder_.pathOf("bus")},
        folder_.pathOf("bus-daemon"));
    set("DBUS_SESSION_BUS_ADDRESS", bus_->firstLine());
    set("QT_ACCESSIBILITY", "1");
    set("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
}

void VirtualDesktop::startWindowManager() {
    // The first simulated key adds a keyboard device, for which a window manager releases its key
    // grabs and takes them again; a key in between would be lost.
    EXPECT_EQ(runCommand("xdotool key Shift_L").status, 0);
    windowManager_ = std::make_unique<ChildProcess>(ChildProcess::Words{"openbox", "--sm-disable"},
                                                    folder_.pathOf("openbox"));
    // Only a running window manager sets the current desktop.
    EXPECT_TRUE(waitUntil([] { return runCommand("xdotool get_desktop").status == 0; }))
        << windowManager_->errors();
}

}  // namespace tarvin
