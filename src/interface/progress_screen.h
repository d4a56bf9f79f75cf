#pragma once

#include "interface/screen.h"

class QLabel;
class QStackedWidget;

namespace tarvin {

class ElidedLabel;
class HoverButton;
class ProgressBar;
class ScanAnimation;
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
    QLabel* const textelapse;
    HoverButton* const pauseResume;
    HoverButton* const stopButton;

 private:
    void placeControls();
    void placeBlock() const;

    ViewButtonGrayBar* const actionBar_;
};

}  // namespace tarvin
