#include "window/input.h"

#include "support/shell_command.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tarvin::input {

namespace {

/// Seconds; a little more than the double-click interval of Qt, 0.4 s.
constexpr const char* timeOfADoubleClick = "0.45";

void act(const std::string& words) {
    const CommandResult result = runCommand("xdotool " + words);
    EXPECT_EQ(result.status, 0) << words << ": " << result.output;
}

std::string wordsFor(Spot spot) {
    return "mousemove " + std::to_string(spot.x) + " " + std::to_string(spot.y);
}

}  // namespace

void moveTo(Spot spot) {
    act(wordsFor(spot));
}

void press() {
    act("mousedown 1");
}

void release() {
    act("mouseup 1");
}

void click(Spot spot) {
    act("sleep " + std::string(timeOfADoubleClick) + " " + wordsFor(spot) + " click 1");
}

void doubleClick(Spot spot) {
    act("sleep " + std::string(timeOfADoubleClick) + " " + wordsFor(spot) +
        " click --repeat 2 --delay 50 1");
}

void key(const std::string& keys) {
    act("key " + keys);
}

void type(const std::string& text) {
    act("type '" + text + "'");
}

void minimize() {
    act("getactivewindow windowminimize");
}

pid_t processInFront() {
    const CommandResult result = runCommand("xdotool getactivewindow getwindowpid");
    return result.status == 0 ? std::atoi(result.output.c_str()) : 0;
}

}  // namespace tarvin::input
