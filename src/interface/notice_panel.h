#pragma once

#include "controls/view_settings_saved.h"
#include "interface/panel.h"

#include <QVector>

namespace tarvin {

class ButtonSettingsSaved;
class Placement;
class TextBlock;

/// A message with its answers, painted by ViewSettingsSaved: a header with the product's name, a
/// text, and buttons at the bottom right. Starts hidden. Main thread only.
class NoticePanel final : public Panel<ViewSettingsSaved> {
    Q_OBJECT

 public:
    static constexpr int designHeight = 140;

    /// `width` in the design; `textName` is the object name of the text.
    NoticePanel(int width, const char* textName, QWidget* parent);

    TextBlock* const text;

    /// Adds a button to the left of those added before.
    ButtonSettingsSaved* addButton(const char* objectName, const QString& title);

    /// The height of the design, or more if the text needs it at this width.
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;

 private:
    int width_;
    int buttonsFrom_;  ///< left edge of the leftmost button
    Placement* placement_;
};

}  // namespace tarvin
