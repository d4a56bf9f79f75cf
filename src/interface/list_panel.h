#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class HoverButton;
class ListTable;

/// `keptWindow`: the files that a clean-up did not move, with a reason for each: a sentence, the
/// list, and "Copy List" and "Close" below. Takes half of what the window gains. Its owner sets the
/// model of the list and connects the buttons. Main thread only.
class ListPanel final : public DialogPanel {
    Q_OBJECT

 public:
    /// Its geometry in the design.
    static constexpr QRect designGeometry{168, 97, 680, 404};

    explicit ListPanel(QWidget* parent);

    QLabel* const sentence;
    ListTable* const table;
    HoverButton* const copyButton;
    HoverButton* const closeButton;
};

}  // namespace tarvin
