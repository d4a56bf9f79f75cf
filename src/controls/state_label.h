#pragma once

#include <QLabel>

namespace tarvin {

/// A short text in a white field with an outline, for a state that lasts, such as a pause. Hidden
/// while the text is empty; announced to assistive technology when it appears. As wide as its text.
/// Owned by its parent. Main thread only.
class StateLabel final : public QLabel {
    Q_OBJECT

 public:
    /// In logical pixels.
    static constexpr int designHeight = 24;

    explicit StateLabel(QWidget* parent = nullptr);

    /// Sets the text and the accessible name. The owner sets the geometry to the new size hint.
    void setState(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    void announce();
};

}  // namespace tarvin
