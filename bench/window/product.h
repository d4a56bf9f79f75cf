#pragma once

#include "controller/app_delegate.h"
#include "platform/platform.h"

#include <QObject>
#include <QSettings>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>

class QAbstractButton;

namespace tarvin::bench {

/// Selects the Qt platform "offscreen", which paints into memory, unless the environment names one.
/// Call before the application object is created, like the next function.
void usePlatformOfMeasurement();
/// Sets the names that determine the settings file.
void nameTheProduct();

/// The product as its own program creates it, on the real platform or another, and functions that
/// operate it. Actions run inside the event loop, like a user's clicks. Main thread only.
class Product final {
 public:
    /// Shows the window. `platform` must outlive this object.
    explicit Product(Platform& platform = systemPlatform());
    /// Waits for a scan that still runs.
    ~Product();

    /// Waits for the window. Returns false if it is not shown.
    [[nodiscard]] bool comes();

    [[nodiscard]] AppDelegate& delegate() { return *delegate_; }
    [[nodiscard]] MainWindow& window() { return delegate_->window(); }
    /// Whether the screen of that identifier is shown.
    [[nodiscard]] bool isOn(const QString& screen);

    /// Runs `action` soon, as a separate event. One action at a time.
    void act(std::function<void()> action);
    /// Presses and releases a button.
    void click(QAbstractButton* button);

    /// Runs the event loop until `condition` is true; checked after each iteration. Returns false
    /// after ten minutes.
    [[nodiscard]] static bool until(const std::function<bool()>& condition);
    /// Runs the event loop for that time.
    static void rest(std::chrono::milliseconds time);

 private:
    QSettings settings_;
    std::unique_ptr<AppDelegate> delegate_;
    QTimer hand_;
    std::function<void()> action_;
};

}  // namespace tarvin::bench
