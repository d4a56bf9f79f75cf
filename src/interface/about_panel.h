#pragma once

#include "controls/painted_button.h"
#include "interface/panel.h"

#include <QFrame>

class QLabel;

namespace tarvin {

class TextBlock;

/// The close button in the header of a panel without answer buttons. Main thread only.
class CloseButton final : public PaintedButton {
    Q_OBJECT

 public:
    explicit CloseButton(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return {28, 27}; }

 protected:
    void draw(QPainter& painter) override;
};

/// `windowAboutPanel`: name, version and copyright of the product. Starts hidden; its button or Esc
/// hides it. Main thread only.
class AboutPanel final : public Panel<QFrame> {
    Q_OBJECT

 public:
    static constexpr QSize designSize{420, 288};

    explicit AboutPanel(QWidget* parent);

    /// "Version ..."; empty at first.
    QLabel* const aboutVersion;
    CloseButton* const closeButton;

    /// The height of the design, or more if the text needs it.
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    void placeControls();

    TextBlock* const sentence_;
};

}  // namespace tarvin
