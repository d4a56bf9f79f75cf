#pragma once

#include "interface/panel.h"

class QLabel;

namespace tarvin {

class Placement;

/// A panel over the results: white with an outline, a blue header with its title, and a soft
/// shadow. A cover below it keeps the mouse from the screen. Starts hidden. Main thread only.
class DialogPanel : public Panel<QWidget> {
    Q_OBJECT

 public:
    static constexpr int bandHeight = 44;

    /// `design` is its size in the design; `headerName` the object name of the title.
    DialogPanel(QSize design, const char* headerName, QWidget* parent);

    QLabel* const header;

    /// The height of the design, or more if a text needs it.
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;

 protected:
    [[nodiscard]] Placement& placement() { return *placement_; }
    /// By how much the texts exceed their height in the design; 0 if they fit.
    [[nodiscard]] virtual int heightMissing() const { return 0; }
    /// Sets the height of the lighter band at the bottom.
    void setFootHeight(int height) { footHeight_ = height; }

    void paintEvent(QPaintEvent* event) override;

 private:
    QSize design_;
    int footHeight_ = 0;
    Placement* placement_;
};

}  // namespace tarvin
