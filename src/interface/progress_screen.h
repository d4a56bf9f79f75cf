#pragma once

#include "interface/screen.h"

class QLabel;
class QStackedWidget;

namespace tarvin {

class ElidedLabel;
class HoverButton;
class Placement;
class ProgressBar;
class ScanAnimation;
class StateLabel;
class ViewButtonGrayBar;

/// Screen "5": the progress of a scan. Main thread only.
class ProgressScreen final : public Screen {
    Q_OBJECT

 public:
    explicit ProgressScreen(ViewTopBar* bar);

    ElidedLabel* const progressTypeText;  ///< in the bar
    /// Has one page with animation, status, bar and current file.
    QStackedWidget* const exactSimilarTabView;
    ScanAnimation* const animationImage;
    QLabel* const searchStatus;
    ProgressBar* const similarIndicator;
    /// The current file, elided in the middle.
    ElidedLabel* const similarProcessing;
    /// Bytes compared and time left; empty while they are unknown.
    QLabel* const progressDetails;
    StateLabel* const progressState;  ///< set with showState()
    QLabel* const textelapse;
    HoverButton* const pauseResume;
    HoverButton* const stopButton;

    /// Shows a state over the foot of the animation, or none if `text` is empty.
    void showState(const QString& text) const;

 private:
    void placeControls();
    void placeBlock();

    ViewButtonGrayBar* const actionBar_;
    Placement* block_ = nullptr;
};

}  // namespace tarvin
