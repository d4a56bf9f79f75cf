#pragma once

#include <QVector>
#include <memory>

class QWidget;

namespace tarvin {

class ViewTransparent;

/// The covers of a window while panels are open above them: each is a ViewTransparent over the
/// whole window that swallows clicks. While there are any, `areas` ignore assistive technology,
/// too. Owned by the window. Main thread only.
class WindowCovers final {
 public:
    /// `areas` are children of `window`. All must outlive this object.
    WindowCovers(QWidget& window, const QVector<const QWidget*>& areas);
    WindowCovers(const WindowCovers&) = delete;
    WindowCovers& operator=(const WindowCovers&) = delete;
    ~WindowCovers();

    /// A ViewTransparent that covers nothing and counts the covers above it.
    [[nodiscard]] ViewTransparent* counter() const { return counter_.get(); }

    /// Covers the window. A panel is shown after that, to be above the cover.
    void add();
    /// Removes the oldest cover, if any. Panels stay.
    void removeFirst();
    void removeAll();
    /// Adapts the covers to the size of the window.
    void resize() const;

 private:
    void remove(ViewTransparent* cover);
    void update() const;

    QWidget& window_;
    const QVector<const QWidget*> areas_;
    const std::unique_ptr<ViewTransparent> counter_;
    QVector<ViewTransparent*> covers_;  // oldest first
};

}  // namespace tarvin
