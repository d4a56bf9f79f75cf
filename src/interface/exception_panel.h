#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class HoverButton;
class TextBlock;

/// `exceptionWindow`: asks whether to exclude the marked files from all scans. Main thread only.
class ExceptionPanel final : public DialogPanel {
    Q_OBJECT

 public:
    explicit ExceptionPanel(QWidget* parent);

    TextBlock* const exceptionTextField;  ///< empty at first
    HoverButton* const excCancelBtn;
    HoverButton* const excOKBtn;

 protected:
    [[nodiscard]] int heightMissing() const override;
};

}  // namespace tarvin
