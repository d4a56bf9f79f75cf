#pragma once

#include <QWidget>

namespace tarvin {

class ImageView;
class PaneFrame;

/// The column of the results that shows one file: its picture, 4 to 3, and below it its
/// properties, which keep at least the height of the design. Main thread.
class PreviewColumn final : public QWidget {
    Q_OBJECT

 public:
    /// Takes both as children.
    PreviewColumn(ImageView* picture, PaneFrame* properties, QWidget* parent = nullptr);

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    ImageView* picture_;
    PaneFrame* properties_;
};

}  // namespace tarvin
