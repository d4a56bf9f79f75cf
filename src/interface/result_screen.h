#pragma once

#include "controls/elided_label.h"
#include "interface/screen.h"

class QLabel;
class QMenu;

namespace tarvin {

class ButtonHoverSimple;
class FileMenu;
class HoverButton;
class ImageView;
class NoticeStrip;
class PaneFrame;
class Placement;
class PopUpButton;
class PropertyText;
class ResultTable;
class ResultTreeView;
class TabButton;
class ToggleButton;
class ViewBackgroundTree;
class ViewButtonBar;
class ViewButtonGrayBar;

/// Screen "4": the result of a scan. `OView2` and `resultTable` are given their models. Main thread
/// only.
class ResultScreen final : public Screen {
    Q_OBJECT

 public:
    explicit ResultScreen(ViewTopBar* bar);

    ButtonHoverSimple* const buttonHomePage;  ///< in the bar
    /// In the bar: what the scan could not read. Shown while setNotRead() has a text.
    NoticeStrip* const notReadNotice;

    TabButton* const allButton;
    TabButton* const imageButton;
    TabButton* const videoButton;
    TabButton* const audioButton;
    TabButton* const documentButton;
    TabButton* const otherButton;

    /// Size, Name, Created Date, Modified Date, Dimension: tags 1 to 5. Its context menu is
    /// `sortByMenu`.
    PopUpButton* const sortPopupBtn;
    ToggleButton* const sortBtn;        ///< on at first; opens `sortingOrderMenu`
    ToggleButton* const asscendingBtn;  ///< on at first; opens `sortingOrderMenu`
    QMenu* const sortByMenu;            ///< the same five; each action's data is its tag, 0 to 4
    QMenu* const sortingOrderMenu;      ///< Ascending, Descending; the data is 0 or 1

    ResultTreeView* const OView2;  // NOLINT(readability-identifier-naming)
    /// The context menu of a row of `OView2`; each action's data is its tag, 0 to 7.
    QMenu* const outlineMenu;
    /// Hidden and shown with its frame.
    ResultTable* const resultTable;
    /// The context menu of a row of `resultTable`.
    FileMenu* const fileMenu;
    ImageView* const imView;
    PropertyText* const textField;
    ElidedLabel* const selectedPath;

    HoverButton* const markAll;
    HoverButton* const unMarkAll;
    HoverButton* const addEceptionBtn;
    HoverButton* const removeExceptionBtn;
    ElidedLabel* const selectedCount;
    ElidedLabel* const selectedSize;
    HoverButton* const finishButton;
    HoverButton* const sendToRecycle;      ///< never shown
    HoverButton* const deletePermanently;  ///< never shown

    /// Sets the text of `notReadNotice`; an empty text hides it.
    void setNotRead(const QString& text);
    /// The title in the bar, which `notReadNotice` shortens.
    [[nodiscard]] ElidedLabel* title() const { return title_; }

 private:
    void nameControls();
    void fillSortControls() const;
    void makeMenus() const;
    void keepKeyboardFromTraps() const;
    void makeShortcuts();
    void placeControls();
    void placeTabBar(Placement& placement);
    void placePanes(Placement& placement);
    void placeActionBar(Placement& placement);
    void openOutlineMenu(const QPoint& position) const;

    ElidedLabel* const title_;
    ViewButtonBar* const tabBar_;
    QLabel* const sortLabel_;
    ViewBackgroundTree* const treeBackground_;
    PaneFrame* const tableFrame_;
    ViewButtonGrayBar* const actionBar_;
};

}  // namespace tarvin
