#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class HoverButton;
class ListTable;

/// `putBackWindow`: the files of the last clean-up, where each goes back to and what stands in its
/// way. Takes half of what the window gains. Its owner sets the texts, gives the list its model and
/// connects the buttons. Main thread.
class PutBackPanel final : public DialogPanel {
    Q_OBJECT

 public:
    /// Where it stands in the content of the design.
    static constexpr QRect designPlace{148, 97, 720, 400};

    explicit PutBackPanel(QWidget* parent);

    QLabel* const putBackDate;
    QLabel* const putBackTotal;
    ListTable* const putBackTable;
    QLabel* const putBackOutcome;
    QLabel* const putBackCannot;
    HoverButton* const putBackCancel;
    HoverButton* const putBackOk;

    /// Whether there is something to put back: "Put Back" is enabled then, and has the keyboard
    /// when the panel comes; else "Cancel" has it.
    void setPossible(bool possible);

 private:
    void placeControls();
};

}  // namespace tarvin
