#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class HoverButton;
class ProgressBar;
class TextBlock;

/// `deletionPreview`: progress of the move to the Trash. While it is shown, Ctrl+P activates Pause
/// or Resume, and Ctrl+. Stop. Main thread only.
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
