#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class ElidedLabel;
class HoverButton;
class ListTable;
class TextBlock;

/// `putBackReport`: the files put back, and a list of the others with reasons. Fixed size. Its
/// owner sets the texts and the model of the list. Main thread only.
class PutBackReport final : public DialogPanel {
    Q_OBJECT

 public:
    /// Its geometry in the design.
    static constexpr QRect designPlace{173, 97, 670, 366};

    explicit PutBackReport(QWidget* parent);

    TextBlock* const putBackReportCount;
    TextBlock* const putBackReportSize;
    QLabel* const putBackReportFailed;
    ListTable* const putBackFailures;
    ElidedLabel* const putBackReportHint;  ///< or why not all was done
    HoverButton* const putBackReportOk;
};

}  // namespace tarvin
