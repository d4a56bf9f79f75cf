#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class HoverButton;
class ProgressBar;
class TextBlock;

/// `putBackProgress`: how many files are back. Escape presses Stop. Main thread.
class PutBackProgress final : public DialogPanel {
    Q_OBJECT

 public:
    /// Where it stands in the content of the design.
    static constexpr QRect designPlace{205, 114, 606, 303};

    explicit PutBackProgress(QWidget* parent);

    ProgressBar* const putBackIndicator;
    TextBlock* const putBackProcessing;  ///< how many of how many
    HoverButton* const stopPutBackBtn;
};

}  // namespace tarvin
