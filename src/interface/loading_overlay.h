#pragma once

class QWidget;

namespace tarvin {

class Placement;
class Spinner;

/// Covers the list and the preview of a result with a spinner while they are prepared. The tree
/// stays usable. Owned by the window. Main thread only.
class LoadingOverlay final {
 public:
    /// Sets up `view`, a hidden child of the window, with `indicator` in it; `placement` is the
    /// window's. All must outlive this object.
    LoadingOverlay(QWidget& view, Spinner& indicator, Placement& placement);

    void show() const;
    void hide() const;

 private:
    QWidget& view_;
    Spinner& indicator_;
};

}  // namespace tarvin
