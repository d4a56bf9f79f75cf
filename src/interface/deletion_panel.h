#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class HoverButton;
class ProgressBar;
class TextBlock;

/// `deletionPreview`: how far the move to the Trash is. Ctrl+P presses Pause or Resume, Ctrl+. Stop
/// while it is shown. Main thread.
class DeletionPanel final : public DialogPanel {
    Q_OBJECT

 public:
    explicit DeletionPanel(QWidget* parent);

    TextBlock* const deletionStatus;
    ProgressBar* const deletionIndicator;
    HoverButton* const pauseResumeBtn;
    HoverButton* const stopDeleteBtn;

 private:
    void placeControls();
};

}  // namespace tarvin
