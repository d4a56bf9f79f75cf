#pragma once

#include "figures.h"

#include <QObject>
#include <QString>
#include <vector>

namespace tarvin {
class ProgressScreen;
}

namespace tarvin::bench {

/// Counts how often a person sees a scan move: each time the bar or the line of the file is painted
/// with something that has not been painted before. Main thread.
class ProgressWatch final : public QObject {
 public:
    /// One phase of a scan.
    struct Phase {
        SteadyClock::time_point from{};
        SteadyClock::time_point to{};
        std::vector<SteadyClock::time_point> paints;   ///< of the bar or the line
        std::vector<SteadyClock::time_point> changes;  ///< those that showed something new
    };

    /// `screen` outlives it.
    explicit ProgressWatch(ProgressScreen& screen);

    /// A scan begins, and with it the collection.
    void begin();
    /// To be asked often: takes note when the comparison begins.
    void look();
    /// The result is there.
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

/// How many of `moments` lie in each whole second of a phase.
[[nodiscard]] std::vector<double> inEachSecond(const ProgressWatch::Phase& phase,
                                               const std::vector<SteadyClock::time_point>& moments);

}  // namespace tarvin::bench
