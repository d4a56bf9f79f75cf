#pragma once

#include "interface/screen.h"

class QLabel;

namespace tarvin {

class ButtonHoverComplex;
class PictureView;
class TextBlock;
class ViewBackground;

/// Screen "1": the choice between drives and folders. Main thread only.
class HomeScreen final : public Screen {
    Q_OBJECT

 public:
    explicit HomeScreen(ViewTopBar* bar);

    PictureView* const brandMark;  ///< in the bar
    ViewBackground* const viewBackground;
    /// The start image, over the card of `viewBackground`. Object name "HomePage".
    PictureView* const homePage;
    QLabel* const heading;
    TextBlock* const explanation;
    /// "Scan Drives".
    ButtonHoverComplex* const mainScanButton;
    /// The same button as `mainScanButton`.
    ButtonHoverComplex* const buttonScanDrive;
    /// "Scan Folders".
    ButtonHoverComplex* const mainScanButtonFolder;
    /// "Files cleaned so far: ..."; empty and hidden at first.
    QLabel* const cleanHistory;

 private:
    void placeControls();
};

}  // namespace tarvin
