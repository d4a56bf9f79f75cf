#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace tarvin {

/// Shows an image, scaled to fit with its aspect ratio kept, or nothing, in a white field with an
/// outline of one logical pixel. Main thread only.
class ImageView final : public QWidget {
    Q_OBJECT

 public:
    explicit ImageView(QWidget* parent = nullptr);

    /// A null image shows nothing.
    void setImage(const QImage& image);
    [[nodiscard]] const QImage& image() const { return image_; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QImage image_;
    QPixmap scaled_;  // as last painted
};

}  // namespace tarvin
