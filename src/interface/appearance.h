#pragma once

class QMenu;
class QPalette;
class QWidget;

namespace tarvin {

/// The colours of our one, light appearance for what Qt paints, in all states.
[[nodiscard]] QPalette lightPalette();

/// Sets the light colours on `widget` and its children, also on a desktop with dark ones.
void useLightColors(QWidget* widget);

/// Has Qt's Fusion style paint `widget` and its present children in the light colours: the
/// desktop's style for scroll bars and lists would not fit the rest.
void useNeutralStyle(QWidget* widget);

/// Sets the style of the program's menus.
void styleMenu(QMenu* menu);

}  // namespace tarvin
