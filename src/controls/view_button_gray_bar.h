#pragma once

#include "controls/solid_bar.h"

namespace tarvin {

/// The grey bar at the bottom of a screen.
class ViewButtonGrayBar final : public SolidBar {
    Q_OBJECT

 public:
    explicit ViewButtonGrayBar(QWidget* parent = nullptr);
};

}  // namespace tarvin
