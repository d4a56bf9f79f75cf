#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace tarvin {

/// Shows a picture as large as its place allows, keeping its proportions, or nothing, in a white
/// field with a thin line of one logical pixel. Main thread.
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
    QPixmap scaled_;  // as it was painted last
};

}  // namespace tarvin
