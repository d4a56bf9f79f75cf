#pragma once

#include <QWidget>

namespace tarvin {

class ImageView;
class PaneFrame;

/// The column of the results that shows one file: its image, 4:3, and its properties below, at
/// least as high as in the design. Main thread only.
class PreviewColumn final : public QWidget {
    Q_OBJECT

 public:
    /// Makes both its children.
    PreviewColumn(ImageView* picture, PaneFrame* properties, QWidget* parent = nullptr);

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    ImageView* picture_;
    PaneFrame* properties_;
};

}  // namespace tarvin
