#pragma once

#include "figures.h"

#include <QObject>
#include <QString>
#include <vector>

namespace tarvin {
class ProgressScreen;
}

namespace tarvin::bench {

/// Counts the visible changes of a scan's progress: each time the bar or the current file is
/// painted with a value that has not been painted before. Main thread only.
class ProgressWatch final : public QObject {
 public:
    /// One phase of a scan.
    struct Phase {
        SteadyClock::time_point from{};
        SteadyClock::time_point to{};
        std::vector<SteadyClock::time_point> paints;   ///< of the bar or the current file
        std::vector<SteadyClock::time_point> changes;  ///< those with a new value
    };

    /// `screen` must outlive this object.
    explicit ProgressWatch(ProgressScreen& screen);

    /// Call when a scan, and so its collection, begins.
    void begin();
    /// Detects the begin of the comparison. Call often.
    void poll();
    /// Call when the result is available.
    void end();

    [[nodiscard]] const Phase& collecting() const { return collecting_; }
    [[nodiscard]] const Phase& comparing() const { return comparing_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    ProgressScreen& screen_;
    Phase collecting_;
    Phase comparing_;
    Phase* now_ = nullptr;
    QString paintedText_;
    quint64 paintedDone_ = 0;
};

/// The number of `moments` in each whole second of a phase.
[[nodiscard]] std::vector<double> inEachSecond(const ProgressWatch::Phase& phase,
                                               const std::vector<SteadyClock::time_point>& moments);

}  // namespace tarvin::bench
