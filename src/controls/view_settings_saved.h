#pragma once

#include <QWidget>

namespace tarvin {

/// The panel of a notice: white with an outline, a blue header of 25 logical pixels and a grey foot
/// of 45. Owned by its parent. Main thread only.
class ViewSettingsSaved : public QWidget {
    Q_OBJECT

 public:
    explicit ViewSettingsSaved(QWidget* parent = nullptr);

 protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarvin
