#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class HoverButton;
class ListTable;

/// `putBackWindow`: the files of the last clean-up, where each will be restored and what prevents
/// it. Takes half of what the window gains. Its owner sets the texts and the model of the list and
/// connects the buttons. Main thread only.
class PutBackPanel final : public DialogPanel {
    Q_OBJECT

 public:
    /// Its geometry in the design.
    static constexpr QRect designPlace{148, 97, 720, 400};

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

}  // namespace tarvin
