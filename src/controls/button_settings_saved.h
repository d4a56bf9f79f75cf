#pragma once

#include "controls/painted_button.h"
#include "controls/view_transparent.h"

#include <QPointer>

namespace tarvin {

/// The answer button of a notice: a light gradient with a blue line, bluer under the pointer. The
/// pointer counts only while a window of the program is active. It turns into a hand only if an
/// overlay was given and no other overlay covers that one.
class ButtonSettingsSaved final : public PaintedButton {
    Q_OBJECT

 public:
    explicit ButtonSettingsSaved(QWidget* parent = nullptr);

    /// The overlay that decides about the cursor; none: the cursor never changes. Not owned.
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
