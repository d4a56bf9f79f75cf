#pragma once

#include <QWidget>

namespace tarvin {

/// The panel of a notice: white with a thin line, a blue band of 25 logical pixels on top and a
/// grey foot of 45. Owned by its parent; main thread.
class ViewSettingsSaved : public QWidget {
    Q_OBJECT

 public:
    explicit ViewSettingsSaved(QWidget* parent = nullptr);

 protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarvin
