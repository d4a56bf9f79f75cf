#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class ElidedLabel;
class HoverButton;
class ListTable;
class SearchField;

/// `exceptionListWindow`: the exceptions list with a search, and buttons that take files off it.
/// Takes half of what the window gains. Its owner sets the model and the texts and connects the
/// buttons. Main thread only.
///
/// Esc clears the search first and then activates Close; Ctrl+F focuses the search. In the list,
/// several rows can be selected, Delete activates Remove, and a click on a title is reported by the
/// header's `sectionClicked`.
class ExceptionListPanel final : public DialogPanel {
    Q_OBJECT

 public:
    /// Its geometry in the design.
    static constexpr QRect designGeometry{168, 97, 680, 404};

    explicit ExceptionListPanel(QWidget* parent);

    SearchField* const exceptionSearch;
    QLabel* const exceptionCount;
    ListTable* const exceptionTable;
    QLabel* const exceptionEmpty;      ///< shown instead of rows by setEmpty(), with a line below
    ElidedLabel* const exceptionNone;  ///< shown instead of rows while its text is set
    HoverButton* const exceptionRemove;
    HoverButton* const exceptionRemoveMissing;
    HoverButton* const exceptionClose;

    /// Whether there are no exceptions at all: then the search is disabled, and "Close" is focused
    /// first.
    void setEmpty(bool empty);
    void setNoneText(const QString& text) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
    /// Ctrl+C in the list.
    void copyRequested();

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void placeControls();
    [[nodiscard]] bool pressTitle(const QKeyEvent& key) const;

    QLabel* const emptyHint_;
};

}  // namespace tarvin
