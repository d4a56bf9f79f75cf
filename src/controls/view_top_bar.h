#pragma once

#include "controls/solid_bar.h"

namespace tarvin {

/// The deep-blue bar over every screen.
class ViewTopBar final : public SolidBar {
    Q_OBJECT

 public:
    explicit ViewTopBar(QWidget* parent = nullptr);
};

}  // namespace tarvin
