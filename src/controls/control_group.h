#pragma once

#include <QWidget>

namespace tarvin {

/// The parent of controls that belong together, such as the radio buttons of one choice. Shows
/// nothing itself; assistive technology is told its accessible name as that of a group. Main thread
/// only.
class ControlGroup final : public QWidget {
    Q_OBJECT

 public:
    explicit ControlGroup(QWidget* parent = nullptr);
};

}  // namespace tarvin
