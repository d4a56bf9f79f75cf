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

/// Chooses the platform that paints into memory, unless the environment names one. Before the
/// application object, as the next.
void usePlatformOfMeasurement();
/// Says whose settings are read.
void nameTheProduct();

/// The product as its own program makes it, on the real platform or another, and a hand that leads
/// it. What the hand does is done inside the event loop, as a person's clicks are. Main thread.
class Product final {
 public:
    /// Shows the window. The platform outlives it.
    explicit Product(Platform& platform = systemPlatform());
    /// Waits for a scan that still runs.
    ~Product();

    /// Waits for the window. False if it does not come.
    [[nodiscard]] bool comes();

    [[nodiscard]] AppDelegate& delegate() { return *delegate_; }
    [[nodiscard]] MainWindow& window() { return delegate_->window(); }
    /// Whether the screen of that identifier is shown.
    [[nodiscard]] bool isOn(const QString& screen);

    /// Does something as an event of its own, soon; one thing at a time.
    void act(std::function<void()> action);
    /// Presses a button and lets it go.
    void click(QAbstractButton* button);

    /// Runs the event loop until something is true; asked after each turn of the loop. False if it
    /// takes longer than ten minutes.
    [[nodiscard]] static bool until(const std::function<bool()>& condition);
    /// Runs the event loop for a while.
    static void rest(std::chrono::milliseconds time);

 private:
    QSettings settings_;
    std::unique_ptr<AppDelegate> delegate_;
    QTimer hand_;
    std::function<void()> action_;
};

}  // namespace tarvin::bench
