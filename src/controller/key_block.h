#pragma once

#include <QObject>

namespace tarvin {

/// Takes every key that is pressed in this program, as long as it exists. For the time in which a
/// cover stops the mouse but no panel has taken the keyboard yet: no shortcut may open a second
/// panel or change a mark then. Main thread only.
class KeyBlock final : public QObject {
 public:
    KeyBlock();
    ~KeyBlock() override;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace tarvin
