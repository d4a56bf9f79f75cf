#pragma once

#include "controls/focus_ring.h"

#include <QAbstractScrollArea>
#include <QMargins>
#include <QPointer>
#include <QWidget>

namespace tarvin {

class LocationTable;

/// A white field with an outline around a list or a text; shown and hidden with it. Shows the focus
/// of its content, unless a row of the list shows it. Main thread only.
class PaneFrame final : public QWidget {
    Q_OBJECT

 public:
    /// `headerHeight` is the height of the list's header, whose tint continues over the whole
    /// width. `lines` are the sides with an outline of one logical pixel.
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

/// The frame around the list of locations: an outline, the header's band over its whole width, and
/// a margin beside and below the rows. A drag over the list widens the outline and makes it teal;
/// the focus in an empty list gives it the focus colour. Main thread only.
class LocationFrame final : public QWidget {
    Q_OBJECT

 public:
    explicit LocationFrame(LocationTable* table, QWidget* parent = nullptr);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    LocationTable* table_;
};

}  // namespace tarvin
