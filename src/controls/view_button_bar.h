#pragma once

#include "controls/solid_bar.h"

namespace tarvin {

/// The white bar under the top bar of the results.
class ViewButtonBar final : public SolidBar {
    Q_OBJECT

 public:
    explicit ViewButtonBar(QWidget* parent = nullptr);
};

}  // namespace tarvin
