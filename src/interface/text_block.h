#pragma once

#include <QLabel>

namespace tarvin {

/// A label with a fixed line height, given like "14/22" in the design: a font of 14 pixels, line
/// height 22. Plain text only. Main thread only.
class TextBlock final : public QLabel {
    Q_OBJECT

 public:
    TextBlock(const QFont& font, int linePitch, const QColor& color, QWidget* parent = nullptr);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    /// The number of lines at `width`, times the line height.
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, linePitch_}; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    int linePitch_;
};

}  // namespace tarvin
