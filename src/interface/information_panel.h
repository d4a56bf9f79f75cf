#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class ElidedLabel;
class HoverButton;
class PictureView;
class TextBlock;

/// `informationWindow`: a picture, up to three lines and one answer. Its owner sets all of them
/// before it is shown. An empty line takes no room; the first may hold several. Below the lines may
/// stand one about the files that were left, with a button that shows them. Main thread.
class InformationPanel final : public DialogPanel {
    Q_OBJECT

 public:
    explicit InformationPanel(QWidget* parent);

    QLabel* const informationHeader;
    TextBlock* const scanInfoCount;
    TextBlock* const scanInfoSize;
    TextBlock* const scanOtherInfo;
    PictureView* const scanInfoImage;
    ElidedLabel* const keptLine;  ///< hidden at first, like its button
    HoverButton* const keptShow;
    HoverButton* const scanInforOKBtn;

    /// Shows `keptLine` with this text and `keptShow` behind it; hides both if it is empty.
    void setKeptLine(const QString& text);

 protected:
    bool event(QEvent* event) override;
    [[nodiscard]] int heightMissing() const override;

 private:
    void placeLines();
    void placeKeptLine(int top) const;
};

}  // namespace tarvin
