#pragma once

class QMenu;
class QPalette;
class QWidget;

namespace tarvin {

/// The colours of the one light appearance for what Qt paints by itself, in every state.
[[nodiscard]] QPalette lightPalette();

/// Gives `widget` the light colours, whatever those of the desktop are. Children take them over.
void useLightColors(QWidget* widget);

/// Has Qt's own neutral style paint `widget` and what is inside it now, instead of the desktop's:
/// for scroll bars and lists, whose looks would not fit the rest. Colours are the light ones.
void useNeutralStyle(QWidget* widget);

/// The look of the program's menus.
void styleMenu(QMenu* menu);

}  // namespace tarvin
