#include "progress_watch.h"

#include "controls/elided_label.h"
#include "controls/progress_bar.h"
#include "interface/progress_screen.h"

#include <QEvent>

namespace tarvin::bench {

ProgressWatch::ProgressWatch(ProgressScreen& screen) : screen_(screen) {
    screen_.similarIndicator->installEventFilter(this);
    screen_.similarProcessing->installEventFilter(this);
}

void ProgressWatch::begin() {
    collecting_ = {};
    comparing_ = {};
    now_ = &collecting_;
    collecting_.from = SteadyClock::now();
}

void ProgressWatch::poll() {
    if (now_ == &collecting_ && screen_.similarIndicator->total() > 0 &&
        !screen_.similarIndicator->isIndeterminate()) {
        collecting_.to = comparing_.from = SteadyClock::now();
        now_ = &comparing_;
    }
}

void ProgressWatch::end() {
    comparing_.to = SteadyClock::now();
    now_ = nullptr;
}

bool ProgressWatch::eventFilter(QObject* watched, QEvent* event) {
    if (now_ != nullptr && event->type() == QEvent::Paint) {
        const SteadyClock::time_point moment = SteadyClock::now();
        now_->paints.push_back(moment);
        const bool isBar = watched == screen_.similarIndicator;
        const QString text = isBar ? paintedText_ : screen_.similarProcessing->text();
        const quint64 done = isBar ? screen_.similarIndicator->done() : paintedDone_;
        if (text != paintedText_ || done != paintedDone_) {
            now_->changes.push_back(moment);
            paintedText_ = text;
            paintedDone_ = done;
        }
    }
    return QObject::eventFilter(watched, event);
}

std::vector<double> inEachSecond(const ProgressWatch::Phase& phase,
                                 const std::vector<SteadyClock::time_point>& moments) {
    const auto wholeSeconds =
        std::chrono::duration_cast<std::chrono::seconds>(phase.to - phase.from);
    std::vector<double> counts(static_cast<std::size_t>(wholeSeconds.count()), 0.0);
    for (const SteadyClock::time_point moment : moments) {
        const auto second = static_cast<std::size_t>(
            std::chrono::duration_cast<std::chrono::seconds>(moment - phase.from).count());
        if (second < counts.size()) {
            ++counts[second];
        }
    }
    return counts;
}

}  // namespace tarvin::bench
