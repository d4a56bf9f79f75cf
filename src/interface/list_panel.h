#pragma once

#include "interface/dialog_panel.h"

#include <QString>

namespace tarvin {

class HoverButton;
class ListTable;

/// A panel with a list of files and a reason for each: a sentence, the list, and "Copy List" and
/// "Close" below. Takes half of what the window gains. Its owner sets the model of the list and
/// connects the buttons. Main thread only.
class ListPanel final : public DialogPanel {
    Q_OBJECT

 public:
    /// Its geometry in the design.
    static constexpr QRect designPlace{168, 97, 680, 404};

    /// Names and texts of a panel. The object names are made from `name`: "kept" gives
    /// "keptWindow", "keptTable", "keptCopy" and "keptClose".
    struct Words {
        const char* name;
        QString title;
        QString sentence;
        QString listName;  ///< for assistive technology
        int reasonWidth = 0;
    };

    ListPanel(const Words& words, QWidget* parent);

    QLabel* const sentence;
    ListTable* const table;
    HoverButton* const copyButton;
    HoverButton* const closeButton;
};

}  // namespace tarvin
