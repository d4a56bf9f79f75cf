#pragma once

#include "controls/attached_drawing.h"

#include <QImage>

namespace tarvin {

/// The soft shadow under a dialog, a notice or a menu panel: navy at 30 %, 10 logical pixels down
/// and blurred over 32. Make one for a panel once the panel has its parent; it comes and goes with
/// the panel and is owned by the panel's parent. Main thread.
class PanelShadow final : public AttachedDrawing {
    Q_OBJECT

 public:
    explicit PanelShadow(QWidget& panel);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QImage image_;  // of the size and density it was painted in last
};

}  // namespace tarvin
