#pragma once

#include <QLabel>

namespace tarvin {

/// A label that breaks its text into lines of a fixed pitch, as the design gives it: "14/22" is a
/// font of 14 pixels on lines 22 pixels apart. Plain text only. Main thread.
class TextBlock final : public QLabel {
    Q_OBJECT

 public:
    TextBlock(const QFont& font, int linePitch, const QColor& color, QWidget* parent = nullptr);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    /// The lines that the text takes at `width`, times the pitch.
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, linePitch_}; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    int linePitch_;
};

}  // namespace tarvin
