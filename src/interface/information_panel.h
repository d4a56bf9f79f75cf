#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class HoverButton;
class PictureView;
class TextBlock;

/// `informationWindow`: a picture, up to three lines and one answer. Its owner sets all of them
/// before it is shown. An empty line takes no room; the first may hold several. Main thread.
class InformationPanel final : public DialogPanel {
    Q_OBJECT

 public:
    explicit InformationPanel(QWidget* parent);

    QLabel* const informationHeader;
    TextBlock* const scanInfoCount;
    TextBlock* const scanInfoSize;
    TextBlock* const scanOtherInfo;
    PictureView* const scanInfoImage;
    HoverButton* const scanInforOKBtn;

 protected:
    bool event(QEvent* event) override;
    [[nodiscard]] int heightMissing() const override;

 private:
    void placeLines();
};

}  // namespace tarvin
