#pragma once

#include "controls/focus_ring.h"

#include <QLineEdit>
#include <QPointer>

namespace tarvin {

class PaintedButton;

/// A text field with a magnifying glass and, while it has text, a button that clears it. Main
/// thread only.
class SearchField final : public QLineEdit {
    Q_OBJECT

 public:
    explicit SearchField(QWidget* parent = nullptr);

    [[nodiscard]] PaintedButton* clearButton() const { return clear_; }

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

 private:
    PaintedButton* const clear_;
    QPointer<FocusRing> ring_;
};

}  // namespace tarvin
