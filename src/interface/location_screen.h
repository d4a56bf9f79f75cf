#pragma once

#include "interface/screen.h"

class QAction;
class QMenu;
class QModelIndex;

namespace tarvin {

class ButtonHoverSimple;
class HoverButton;
class LocationFrame;
class LocationTable;
class Placement;
class TextBlock;
class ViewButtonGrayBar;
class WIndowsLikeButton;

/// Screen "2": the list of locations that can be scanned. The model of `tableExact` has the two
/// columns of LocationTable. Main thread only.
class LocationScreen final : public Screen {
    Q_OBJECT

 public:
    explicit LocationScreen(ViewTopBar* bar);

    ButtonHoverSimple* const buttonHomeExactPage;  ///< in the bar
    WIndowsLikeButton* const backFolderButton;
    WIndowsLikeButton* const nextFolderButton;
    TextBlock* const hint;
    HoverButton* const markAllExactBtn;
    HoverButton* const unmarkAllExactBtn;
    HoverButton* const removeFromListExactBtn;
    LocationTable* const tableExact;
    /// The frame and header band around `tableExact`; its geometry is that of the list in the
    /// design.
    LocationFrame* const tableFrame;
    HoverButton* const addPhotos;
    HoverButton* const addFolders;
    HoverButton* const findDuplicateExact;

    /// The context menu of the list, shown only over a row. When aboutToShow() is emitted, set
    /// titles and visibility for clickedRow().
    QMenu* const tableMenu;
    QAction* const markMenuTable;
    QAction* const removeFromListMenu;
    QAction* const markAllMenu;
    QAction* const unMarkAllMenu;

    /// The row that the context menu was opened on; -1 before that.
    [[nodiscard]] int clickedRow() const { return clickedRow_; }

 private:
    void placeControls();
    void placeTools(Placement& placement);
    void placeActionBar(Placement& placement);
    void makeMenu();
    void makeShortcuts();
    void openMenu(const QPoint& position);

    ViewButtonGrayBar* const actionBar_;
    int clickedRow_ = -1;
};

}  // namespace tarvin
