#pragma once

#include <QString>

namespace tarvin {

class ButtonHoverSimple;
class ElidedLabel;
class ViewTopBar;

/// The title of a screen, at its position in the bar, elided at the end.
ElidedLabel* makeScreenTitle(const char* name, const QString& title, ViewTopBar* bar);

/// A home button at its position in the bar, with its accessible name. The owner of the window sets
/// its images.
ButtonHoverSimple* makeHomeButton(const char* name, ViewTopBar* bar);

}  // namespace tarvin
