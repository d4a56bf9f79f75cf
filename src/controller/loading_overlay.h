#pragma once

namespace tarvin {

class MainWindow;

/// What covers files and preview while they are made ready; the tree stays usable. Main thread.
class LoadingOverlay final {
 public:
    /// `window` outlives it.
    explicit LoadingOverlay(MainWindow& window) : window_(window) {}

    void show() const;
    void hide() const;

 private:
    MainWindow& window_;
};

}  // namespace tarvin
