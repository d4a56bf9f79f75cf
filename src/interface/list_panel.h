#pragma once

#include "interface/dialog_panel.h"

#include <QString>
#include <string>

namespace tarvin {

class HoverButton;
class ListTable;

/// A list of files with a reason for each: a sentence, the list, and "Copy List" and "Close" below.
/// Takes half of what the window gains. Its owner sets the model of the list and connects the
/// buttons. Main thread only.
class ListPanel final : public DialogPanel {
    Q_OBJECT

 public:
    /// Its geometry in the design.
    static constexpr QRect designGeometry{168, 97, 680, 404};

    /// `keptWindow`: the files that a clean-up did not move.
    [[nodiscard]] static ListPanel* makeKept(QWidget* parent);
    /// `notReadWindow`: the folders and files that a scan could not read.
    [[nodiscard]] static ListPanel* makeNotRead(QWidget* parent);

    QLabel* const sentence;
    ListTable* const table;
    HoverButton* const copyButton;
    HoverButton* const closeButton;

 private:
    struct Texts {
        QString title;
        QString sentence;
        QString listName;  ///< accessible name of the list
    };

    /// The object names begin with `prefix`.
    ListPanel(const std::string& prefix, const Texts& texts, QWidget* parent);
};

}  // namespace tarvin
