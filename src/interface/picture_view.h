#pragma once

#include <QString>
#include <QWidget>

namespace tarvin {

/// Shows one of the program's drawings, sharp at every pixel density. Empty without a
/// drawing of that name. Main thread.
class PictureView final : public QWidget {
    Q_OBJECT

 public:
    explicit PictureView(QWidget* parent = nullptr);

    /// `name` as picture() takes it; the empty string shows nothing.
    void setPictureName(const QString& name);
    [[nodiscard]] const QString& pictureName() const { return pictureName_; }

    /// Whether white lies behind the drawing; first it does not.
    void setBacked(bool backed);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QString pictureName_;
    bool backed_ = false;
};

}  // namespace tarvin
