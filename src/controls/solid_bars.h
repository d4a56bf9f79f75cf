#pragma once

#include "controls/look.h"

#include <QColor>
#include <QWidget>

namespace tarvin {

/// An area of one colour, which it restores on each painting: another one that was set is never
/// seen. Owned by its parent. Main thread only.
class SolidBar : public QWidget {
    Q_OBJECT

 public:
    SolidBar(const QColor& ownColor, QWidget* parent);

    void setFillColor(const QColor& fillColor);
    [[nodiscard]] QColor fillColor() const { return fillColor_; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QColor ownColor_;
    QColor fillColor_;
};

/// The deep-blue bar over every screen.
class ViewTopBar final : public SolidBar {
    Q_OBJECT

 public:
    explicit ViewTopBar(QWidget* parent = nullptr) : SolidBar(look::topBar, parent) {}
};

/// The white bar under the top bar of the results.
class ViewButtonBar final : public SolidBar {
    Q_OBJECT

 public:
    explicit ViewButtonBar(QWidget* parent = nullptr) : SolidBar(look::surface, parent) {}
};

/// The grey bar at the bottom of a screen.
class ViewButtonGrayBar final : public SolidBar {
    Q_OBJECT

 public:
    explicit ViewButtonGrayBar(QWidget* parent = nullptr) : SolidBar(look::barGray, parent) {}
};

/// The teal frame around the tree of results.
class ViewBackgroundTree final : public SolidBar {
    Q_OBJECT

 public:
    explicit ViewBackgroundTree(QWidget* parent = nullptr) : SolidBar(look::teal, parent) {}
};

}  // namespace tarvin
