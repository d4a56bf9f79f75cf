#pragma once

#include "interface/panel_keyboard.h"

#include <QKeyEvent>
#include <QWidget>

namespace tarvin {

/// A view that keeps the focus while it is shown over the screens. `Base` paints it. Starts
/// hidden. Main thread only.
template <class Base>
class Panel : public Base {
 public:
    explicit Panel(QWidget* parent) : Base(parent) { this->hide(); }

    [[nodiscard]] PanelKeyboard& keyboard() { return keyboard_; }

 protected:
    /// Called for each control inside.
    bool focusNextPrevChild(bool next) override {
        keyboard_.moveOn(next);
        return true;
    }

    void showEvent(QShowEvent* event) override {
        Base::showEvent(event);
        if (!event->spontaneous()) {
            keyboard_.take();
        }
    }

    void hideEvent(QHideEvent* event) override {
        Base::hideEvent(event);
        if (!event->spontaneous()) {
            keyboard_.giveBack();
        }
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (!keyboard_.press(*event)) {
            Base::keyPressEvent(event);
        }
    }

 private:
    PanelKeyboard keyboard_{this};
};

}  // namespace tarvin
