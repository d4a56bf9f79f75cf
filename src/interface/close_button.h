#pragma once

#include "controls/painted_button.h"

namespace tarvin {

/// The close button in the header of a panel without answer buttons. Main thread only.
class CloseButton final : public PaintedButton {
    Q_OBJECT

 public:
    explicit CloseButton(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return {28, 27}; }

 protected:
    void draw(QPainter& painter) override;
};

}  // namespace tarvin
