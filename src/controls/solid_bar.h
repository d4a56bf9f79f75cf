#pragma once

#include <QColor>
#include <QWidget>

namespace tarvin {

/// A bar of one colour, which it restores on each painting: another one that was set is never seen.
/// Owned by its parent. Main thread only.
class SolidBar : public QWidget {
    Q_OBJECT

 public:
    SolidBar(const QColor& ownColor, QWidget* parent);

    void setFillColor(const QColor& fillColor);
    [[nodiscard]] QColor fillColor() const { return fillColor_; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QColor ownColor_;
    QColor fillColor_;
};

}  // namespace tarvin
