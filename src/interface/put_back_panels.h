#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class ElidedLabel;
class HoverButton;
class ListTable;
class ProgressBar;
class TextBlock;

/// `putBackWindow`: the files of the last clean-up, where each will be restored and what prevents
/// it. Takes half of what the window gains. Its owner sets the texts and the model of the list and
/// connects the buttons. Main thread only.
class PutBackPanel final : public DialogPanel {
    Q_OBJECT

 public:
    /// Its geometry in the design.
    static constexpr QRect designGeometry{148, 97, 720, 400};

    explicit PutBackPanel(QWidget* parent);

    QLabel* const putBackDate;
    QLabel* const putBackTotal;
    ListTable* const putBackTable;
    QLabel* const putBackOutcome;
    QLabel* const putBackCannot;
    HoverButton* const putBackCancel;
    HoverButton* const putBackOk;

    /// Whether there is a file to put back: then "Put Back" is enabled and focused first, otherwise
    /// "Cancel" is.
    void setPossible(bool possible);

 private:
    void placeControls();
};

/// `putBackProgress`: how many files have been put back. Esc activates Stop. Main thread only.
class PutBackProgress final : public DialogPanel {
    Q_OBJECT

 public:
    /// Its geometry in the design.
    static constexpr QRect designGeometry{205, 114, 606, 303};

    explicit PutBackProgress(QWidget* parent);

    ProgressBar* const putBackIndicator;
    TextBlock* const putBackProcessing;  ///< the number done and the total
    HoverButton* const stopPutBackBtn;
};

/// `putBackReport`: the files put back, and a list of the others with reasons. Fixed size. Its
/// owner sets the texts and the model of the list. Main thread only.
class PutBackReport final : public DialogPanel {
    Q_OBJECT

 public:
    /// Its geometry in the design.
    static constexpr QRect designGeometry{173, 97, 670, 366};

    explicit PutBackReport(QWidget* parent);

    TextBlock* const putBackReportCount;
    TextBlock* const putBackReportSize;
    QLabel* const putBackReportFailed;
    ListTable* const putBackFailures;
    ElidedLabel* const putBackReportHint;  ///< or why not all was done
    HoverButton* const putBackReportOk;
};

}  // namespace tarvin
