#pragma once

#include "controls/focus_ring.h"

#include <QComboBox>
#include <QPointer>

namespace tarvin {

/// A button that shows one of several items and opens a list to choose another. Each item has a
/// tag. Looks like a quiet HoverButton. `activated` reports each choice of the user, even of the
/// current item. The mouse wheel is ignored. Owned by its parent. Main thread only.
class PopUpButton final : public QComboBox {
    Q_OBJECT

 public:
    explicit PopUpButton(QWidget* parent = nullptr);

    void addTagged(const QString& title, int tag);

    /// Selects the item with this tag; ignores an unknown tag.
    void selectItemWithTag(int tag);
    /// The tag of the current item; 0 if there is none.
    [[nodiscard]] int selectedTag() const { return currentData().toInt(); }

    /// Wide enough for each item.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    [[nodiscard]] bool showsFocusRing() const;

    /// Updates the hover state from the position of the pointer. Called by the button whenever it
    /// is shown, enabled or disabled, and when its list or a menu has closed.
    void updateTrackingAreas();

    /// Opens the list, unless signals are blocked.
    void showPopup() override;

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

 private:
    void draw(QPainter& painter) const;
    void setHovering(bool hovering);
    void showRing(bool shown);

    bool hovering_ = false;
    QPointer<FocusRing> ring_;
};

}  // namespace tarvin
