#pragma once

#include "controls/focus_ring.h"

#include <QComboBox>
#include <QPointer>

namespace tarvin {

/// A button that shows one of several items and opens a list to choose another. Each item has a
/// tag. Looks as a quiet HoverButton. `activated` reports each choice of a person, also that of the
/// item shown already. The mouse wheel changes nothing. Owned by its parent; main thread.
class PopUpButton final : public QComboBox {
    Q_OBJECT

 public:
    explicit PopUpButton(QWidget* parent = nullptr);

    void addTagged(const QString& title, int tag);

    /// Shows the item with this tag; a tag that no item has changes nothing.
    void selectItemWithTag(int tag);
    /// The tag of the item that is shown; 0 without one.
    [[nodiscard]] int selectedTag() const { return currentData().toInt(); }

    /// Wide enough for each item.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    [[nodiscard]] bool showsFocusRing() const;

    /// Looks whether the pointer is over the button. Called by the button itself whenever it is
    /// shown, enabled or disabled, and when its list or a menu has closed.
    void updateTrackingAreas();

    /// Opens the list, unless signals are blocked and a choice would tell nobody.
    void showPopup() override;

 protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
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
