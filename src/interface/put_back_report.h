#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class ElidedLabel;
class HoverButton;
class ListTable;
class TextBlock;

/// `putBackReport`: what came back, and a list of what did not and why. Keeps its size. Its owner
/// sets the texts and gives the list its model. Main thread.
class PutBackReport final : public DialogPanel {
    Q_OBJECT

 public:
    /// Where it stands in the content of the design.
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
