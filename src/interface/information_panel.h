#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class ElidedLabel;
class HoverButton;
class PictureView;
class TextBlock;

/// `informationWindow`: an image, up to three lines and one answer, which the owner sets before
/// showing it. An empty line takes no space; the first may contain line breaks. Below the lines
/// there can be one about the files that were left, with a button that shows them. Main thread
/// only.
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

    /// Shows `keptLine` with this text, and `keptShow` next to it; hides both if the text is empty.
    void setKeptLine(const QString& text);

 protected:
    bool event(QEvent* event) override;
    [[nodiscard]] int heightMissing() const override;

 private:
    void placeLines();
    void placeKeptLine(int top) const;
};

}  // namespace tarvin
