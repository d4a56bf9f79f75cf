#pragma once

#include "interface/dialog_panel.h"

namespace tarvin {

class ElidedLabel;
class HoverButton;
class PictureView;
class ProgressBar;
class TextBlock;

/// `deletionPreview`: progress of the move to the Trash. While it is shown, Ctrl+P activates Pause
/// or Resume, and Ctrl+. Stop. Main thread only.
class DeletionPanel final : public DialogPanel {
    Q_OBJECT

 public:
    explicit DeletionPanel(QWidget* parent);

    TextBlock* const deletionStatus;
    ProgressBar* const deletionIndicator;
    HoverButton* const pauseResumeBtn;
    HoverButton* const stopDeleteBtn;

 private:
    void placeControls();
};

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
    HoverButton* const notReadShow;  ///< beside the answer; hidden at first
    HoverButton* const scanInforOKBtn;

    /// Shows `keptLine` with this text, and `keptShow` next to it; hides both if the text is empty.
    void setKeptLine(const QString& text);
    /// Shows `notReadShow`, which tells `notice` to assistive technology; hides it if that is
    /// empty.
    void setNotRead(const QString& notice) const;

 protected:
    bool event(QEvent* event) override;
    [[nodiscard]] int heightMissing() const override;

 private:
    void placeLines();
    void placeKeptLine(int top) const;
    void placeNotReadShow() const;
};

}  // namespace tarvin
