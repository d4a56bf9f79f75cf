#pragma once

#include <QWidget>

namespace tarvin {

class LocationTable;

/// The frame around the list of locations: an outline, the header's band over its whole width, and
/// a margin beside and below the rows. A drag over the list widens the outline and makes it teal;
/// the focus in an empty list gives it the focus colour. Main thread only.
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
