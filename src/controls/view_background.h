#pragma once

#include <QPainter>
#include <QWidget>

namespace tarvin {

/// The panel of the first screen, 1038 x 486: blue, with a white card of 914 x 400 that describes
/// the program. The start image covers the card. Owned by its parent. Main thread only.
class ViewBackground final : public QWidget {
    Q_OBJECT

 public:
    explicit ViewBackground(QWidget* parent = nullptr);

    /// The geometry of the card.
    [[nodiscard]] QRect card() const;

    [[nodiscard]] QSize sizeHint() const override { return {1038, 486}; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    void drawTexts(QPainter& painter) const;
};

}  // namespace tarvin
