#pragma once

#include "window/accessible.h"

#include <string>

namespace tarvin {

/// What a person does with mouse and keyboard, by real events of the X server.
namespace input {

/// Of the screen, in pixels.
inline constexpr int screenWidth = 1600;

void moveTo(Spot spot);
void press();    ///< the left button
void release();  ///< the left button
/// A click that is none of a pair: it comes after the time of a double click, in which a screen
/// that has just come takes none.
void click(Spot spot);
/// Two clicks at once.
void doubleClick(Spot spot);
/// A key with its modifiers, as in "alt+F4", for the window that has the keyboard.
void key(const std::string& keys);

/// Makes the window that has the keyboard an icon.
void minimize();

/// The process of the window that has the keyboard; 0 if there is none.
[[nodiscard]] pid_t processInFront();

}  // namespace input

}  // namespace tarvin
