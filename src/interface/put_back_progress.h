#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class HoverButton;
class ProgressBar;
class TextBlock;

/// `putBackProgress`: how many files have been put back. Esc activates Stop. Main thread only.
class PutBackProgress final : public DialogPanel {
    Q_OBJECT

 public:
    /// Its geometry in the design.
    static constexpr QRect designPlace{205, 114, 606, 303};

    explicit PutBackProgress(QWidget* parent);

    ProgressBar* const putBackIndicator;
    TextBlock* const putBackProcessing;  ///< the number done and the total
    HoverButton* const stopPutBackBtn;
};

}  // namespace tarvin
