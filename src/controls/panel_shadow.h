#pragma once

#include "controls/attached_drawing.h"

#include <QImage>

namespace tarvin {

/// The soft shadow below a dialog, a notice or a menu panel: navy at 30 %, 10 logical pixels down,
/// blur 32. Create it after the panel has its parent, which owns it; it is shown and hidden with
/// the panel. Main thread only.
class PanelShadow final : public AttachedDrawing {
    Q_OBJECT

 public:
    explicit PanelShadow(QWidget& panel);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QImage image_;  // of the size and device pixel ratio painted last
};

}  // namespace tarvin
