#pragma once

#include "controls/painted_button.h"
#include "controls/view_transparent.h"

#include <QPointer>

namespace tarvin {

/// The answer button of a notice: a light gradient with a blue outline, bluer while hovered. It is
/// hovered only while a window of the program is active. The hand cursor needs an overlay that no
/// other overlay covers.
class ButtonSettingsSaved final : public PaintedButton {
    Q_OBJECT

 public:
    explicit ButtonSettingsSaved(QWidget* parent = nullptr);

    /// The overlay that decides about the cursor; nullptr: the cursor never changes. Not owned.
    void setViewTransparent(ViewTransparent* viewTransparent);
    [[nodiscard]] ViewTransparent* viewTransparent() const { return viewTransparent_; }

    [[nodiscard]] QSize sizeHint() const override { return {84, 27}; }

 protected:
    void draw(QPainter& painter) override;
    [[nodiscard]] double shownOpacity() const override;

 private:
    void updateCursor();

    QPointer<ViewTransparent> viewTransparent_;
};

}  // namespace tarvin
