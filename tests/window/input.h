#pragma once

#include "window/accessible.h"

#include <string>

namespace tarvin {

/// Mouse and keyboard input through events of the X server (xdotool).
namespace input {

/// In pixels.
inline constexpr int screenWidth = 1600;

void moveTo(Spot spot);
void press();    ///< the left button
void release();  ///< the left button
/// A single click, sent after the double-click interval: a screen that has just appeared ignores
/// clicks within it.
void click(Spot spot);
/// Two clicks without a pause.
void doubleClick(Spot spot);
/// A key with its modifiers, such as "alt+F4", for the window with the keyboard focus.
void key(const std::string& keys);
/// Types a text without quotation marks.
void type(const std::string& text);

/// Minimizes the window with the keyboard focus.
void minimize();

/// The process ID of the window with the keyboard focus; 0 if there is none.
[[nodiscard]] pid_t processInFront();

}  // namespace input

}  // namespace tarvin
