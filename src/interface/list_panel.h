#pragma once

#include "interface/dialog_panel.h"

#include <QString>

namespace tarvin {

class HoverButton;
class ListTable;

/// A panel that shows a list of files with a reason for each: a sentence, the list, and "Copy List"
/// and "Close" at its foot. Takes half of what the window gains. Its owner gives the list its model
/// and connects the buttons. Main thread.
class ListPanel final : public DialogPanel {
    Q_OBJECT

 public:
    /// Where it stands in the content of the design.
    static constexpr QRect designPlace{168, 97, 680, 404};

    /// What one is called and says. `name` is that of the panel, from which those of its parts are
    /// made: "kept" gives "keptWindow", "keptTable", "keptCopy" and "keptClose".
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
