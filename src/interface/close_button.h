#pragma once

#include "controls/painted_button.h"

namespace tarvin {

/// The cross in the band of a panel that has no answer button. Main thread.
class CloseButton final : public PaintedButton {
    Q_OBJECT

 public:
    explicit CloseButton(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return {28, 27}; }

 protected:
    void draw(QPainter& painter) override;
};

}  // namespace tarvin
