#pragma once

#include <QWidget>

namespace tarvin {

class LocationTable;

/// The frame around the list of locations: a line all round, the header's band over its whole
/// width, and a margin beside and below the rows. A drag that hovers is shown by a wider line in
/// teal; the keyboard in an empty list by the focus colour. Main thread.
class LocationFrame final : public QWidget {
    Q_OBJECT

 public:
    explicit LocationFrame(LocationTable* table, QWidget* parent = nullptr);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    LocationTable* table_;
};

}  // namespace tarvin
