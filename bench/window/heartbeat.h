#pragma once

#include "figures.h"

#include <QApplication>
#include <QString>
#include <chrono>
#include <string>
#include <vector>

namespace tarvin::bench {

/// The work of the main thread between two waits of its event loop, with all handlers in it.
/// Milliseconds.
struct Stall {
    double wall = 0;
    double processor = 0;  ///< CPU time of the thread
    double queued = 0;     ///< time in which it was runnable, waiting for a CPU
    double handler = 0;    ///< the longest single handler in it
    std::string what;      ///< that handler: the class of the receiver, its name, the event
};

/// Measures the stalls of the main thread: the longest stall of each step of a scenario. One per
/// process, created after the application object. Main thread only.
///
/// A stall ends only when the loop blocks, not when it polls for events without blocking:
/// handlers that follow without a wait delay a click as well.
class Heartbeat final {
 public:
    struct Step {
        std::string name;
        std::size_t stalls = 0;
        Stall longest;
    };

    Heartbeat();
    Heartbeat(const Heartbeat&) = delete;
    Heartbeat& operator=(const Heartbeat&) = delete;
    ~Heartbeat();

    /// Begins the step of that name; the current stall counts for it.
    void enter(const std::string& step);
    /// Discards the work since the last wait.
    void startAnew() { waitEnded(); }
    /// Each step once, in the order in which they were first entered. Requires that the loop has
    /// waited since the last event to be counted.
    [[nodiscard]] const std::vector<Step>& steps() const { return steps_; }
    /// Forgets the steps.
    void clear();

    // Called by the application and by the loop.
    void handlerBegan();
    void handlerEnded(const char* className, const QString& name, int event);
    void waitBegins();
    void waitEnded();

 private:
    std::vector<Step> steps_;
    std::size_t now_ = 0;
    Stall stall_;
    SteadyClock::time_point stallBegan_;
    double processorBegan_ = 0;
    double queuedBegan_ = 0;
    SteadyClock::time_point handlerBegan_;
};

/// The application object of a measurement: reports every handler to the heartbeat.
class WatchedApplication final : public QApplication {
 public:
    WatchedApplication(int& argc, char** argv) : QApplication(argc, argv) {}

    bool notify(QObject* receiver, QEvent* event) override;

 private:
    int depth_ = 0;
};

}  // namespace tarvin::bench
