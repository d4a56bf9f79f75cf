#pragma once

#include <QString>
#include <QWidget>

namespace tarvin {

/// Shows one of the program's images, sharp at every device pixel ratio; nothing if there is no
/// image of that name. Main thread only.
class PictureView final : public QWidget {
    Q_OBJECT

 public:
    explicit PictureView(QWidget* parent = nullptr);

    /// `name` as for picture(); an empty one shows nothing.
    void setPictureName(const QString& name);
    [[nodiscard]] const QString& pictureName() const { return pictureName_; }

    /// Whether the background is white; false by default.
    void setBacked(bool backed);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QString pictureName_;
    bool backed_ = false;
};

}  // namespace tarvin
