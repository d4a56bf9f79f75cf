#include "controller/progress_details.h"

#include "controller/scan_screen_texts.h"

namespace tarvin {

namespace {

// A scan on devices that respond stops within a second.
constexpr std::chrono::seconds patienceWithStop{5};

}  // namespace

void ProgressDetails::begin() {
    timeLeft_.restart();
    state_ = State::running;
    bytes_ = {};
    stopped_.reset();
}

void ProgressDetails::compared(BytesCompared bytes) {
    if (state_ == State::running) {
        bytes_ = bytes;
        timeLeft_.update(bytes);
    }
}

void ProgressDetails::stop() {
    change(State::stopping);
    stopped_ = clock_.steadyNow();
}

void ProgressDetails::change(State state) {
    if (isStopping()) {
        return;
    }
    state_ = state;
    if (state != State::running) {
        timeLeft_.pause();
    }
}

bool ProgressDetails::isStopSlow() const {
    return stopped_ && clock_.steadyNow() - *stopped_ >= patienceWithStop;
}

QString ProgressDetails::details() const {
    if (isStopSlow()) {
        return ScanScreenTexts::waitingForCurrentFile();
    }
    if (bytes_.total == 0) {
        return {};
    }
    QString compared = ScanScreenTexts::compared(bytes_.done, bytes_.total);
    const auto left = timeLeft_.left();
    if (state_ != State::running || !left) {
        return compared;
    }
    return compared + QStringLiteral(" · ") + ScanScreenTexts::timeLeft(*left);
}

QString ProgressDetails::state() const {
    if (isStopping()) {
        return ScanScreenTexts::stopping();
    }
    return state_ == State::paused ? ScanScreenTexts::paused() : QString();
}

}  // namespace tarvin
