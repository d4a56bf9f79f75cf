#pragma once

#include "figures.h"

#include <QApplication>
#include <QString>
#include <chrono>
#include <string>
#include <vector>

namespace tarvin::bench {

/// One stretch of the main thread's work, from one wait of its event loop to the next, with all
/// handlers that ran meanwhile. Milliseconds.
struct Stretch {
    double wall = 0;
    double processor = 0;  ///< the time that the thread was running
    double queued = 0;     ///< the time that it could have run, had a processor been free
    double handler = 0;    ///< the longest single handler in it
    std::string what;      ///< that handler: the class of the receiver, its name, the event
};

/// Watches the event loop of the main thread, and remembers the longest stretch of each step that
/// the program is led through. One for the process, made after the application object; main thread.
///
/// A stretch ends only where the loop really waits. Where it merely looks whether something new has
/// come, the stretch goes on: what follows without a wait would delay a click just as well.
class Heartbeat final {
 public:
    struct Step {
        std::string name;
        std::size_t stretches = 0;
        Stretch longest;
    };

    Heartbeat();
    Heartbeat(const Heartbeat&) = delete;
    Heartbeat& operator=(const Heartbeat&) = delete;
    ~Heartbeat();

    /// What follows belongs to the step of that name, the stretch in hand included.
    void enter(const std::string& step);
    /// What was done since the last wait is not counted.
    void startAnew() { waitEnded(); }
    /// The steps entered, each once, in the order of their first time. The caller has let the loop
    /// wait since the last event that is to be counted.
    [[nodiscard]] const std::vector<Step>& steps() const { return steps_; }
    /// Forgets the steps.
    void clear();

    // Told by the application and by the loop.
    void handlerBegan();
    void handlerEnded(const char* className, const QString& name, int event);
    void waitBegins();
    void waitEnded();

 private:
    std::vector<Step> steps_;
    std::size_t now_ = 0;
    Stretch stretch_;
    SteadyClock::time_point stretchBegan_;
    double processorBegan_ = 0;
    double queuedBegan_ = 0;
    SteadyClock::time_point handlerBegan_;
};

/// The application object of a measurement: tells the heartbeat of every handler.
class WatchedApplication final : public QApplication {
 public:
    WatchedApplication(int& argc, char** argv) : QApplication(argc, argv) {}

    bool notify(QObject* receiver, QEvent* event) override;

 private:
    int depth_ = 0;
};

}  // namespace tarvin::bench
