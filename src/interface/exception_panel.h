#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class HoverButton;
class TextBlock;

/// `exceptionWindow`: asks whether the marked files are to be left out of all scans. Main thread.
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
