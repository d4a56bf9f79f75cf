#pragma once

class QMenu;
class QPalette;
class QWidget;

namespace tarvin {

/// The colours of our one, light appearance for what Qt paints, in all states. A widget and its
/// children need them also on a desktop with dark ones.
[[nodiscard]] QPalette lightPalette();

/// Has Qt's Fusion style paint `widget` and its present children in the light colours: the
/// desktop's style for scroll bars and lists would not fit the rest.
void useNeutralStyle(QWidget* widget);

/// Sets the style of the program's menus.
void styleMenu(QMenu* menu);

}  // namespace tarvin
