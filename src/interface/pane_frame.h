#pragma once

#include "controls/focus_ring.h"

#include <QAbstractScrollArea>
#include <QMargins>
#include <QPointer>

namespace tarvin {

/// A white field with a thin line that holds a list or a text. Is hidden and shown with it. Shows
/// that the keyboard is inside, unless a row of the list shows it. Main thread.
class PaneFrame final : public QWidget {
    Q_OBJECT

 public:
    /// `headerHeight` is that of the list's header, whose tint goes on over the whole width.
    /// `lines` says on which sides a line is drawn, each one logical pixel wide.
    explicit PaneFrame(QAbstractScrollArea* content, int headerHeight = 0,
                       const QMargins& lines = {1, 1, 1, 1}, QWidget* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    void showRing();

    QAbstractScrollArea* content_;
    int headerHeight_;
    QMargins lines_;
    bool focusShown_ = false;
    QPointer<FocusRing> ring_;
};

}  // namespace tarvin
