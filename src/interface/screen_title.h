#pragma once

#include <QString>

namespace tarvin {

class ButtonHoverSimple;
class ElidedLabel;
class ViewTopBar;

/// The title of a screen, at its place in the bar; shortened at its end if it is too long.
ElidedLabel* makeScreenTitle(const char* name, const QString& title, ViewTopBar* bar);

/// A home button at its place in the bar, with its accessible name; its images are given to it by
/// whoever owns the window.
ButtonHoverSimple* makeHomeButton(const char* name, ViewTopBar* bar);

}  // namespace tarvin
